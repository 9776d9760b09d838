#include "autotrack/DailyAppUsage.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace brisklog::test {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::Pair;

constexpr Date later{1000};

AppUsageSession session(const std::string& name, const std::string& identifier, double start,
                        std::optional<Date> end) {
    return {.id = Uuid::generate(),
            .appName = name,
            .bundleIdentifier = identifier,
            .startTime = Date{start},
            .endTime = end,
            .iconData = std::nullopt};
}

const DailyAppUsage sampleDay{
    .id = {},
    .date = {},
    .sessions = {session("Zeichnen", "org.z", 0, Date{10}), session("Browser", "org.b1", 10, Date{40}),
                 session("Zeichnen", "org.z", 40, Date{45.5}), session("Browser", "org.b2", 45.5, Date{50})}};

TEST(DailyAppUsage, totalDurationIsTheSumOfAllSessions) {
    EXPECT_EQ(sampleDay.totalDuration(later), 50);
    EXPECT_EQ(DailyAppUsage().totalDuration(later), 0);
}

TEST(DailyAppUsage, anOpenSessionCountsUpToNow) {
    DailyAppUsage open = sampleDay;
    open.sessions.push_back(session("Browser", "org.b1", 900, std::nullopt));
    EXPECT_EQ(open.totalDuration(later), 150);
    EXPECT_EQ(open.totalDuration(later.addingSeconds(7)), 157);
    EXPECT_EQ(open.durationByApp(later).at("Browser"), 134.5);
}

TEST(DailyAppUsage, applicationsOfTheSameNameAreOneGroupInTheOrderOfTheList) {
    const auto groups = sampleDay.groupedByApp();
    ASSERT_EQ(groups.size(), 2u);
    EXPECT_THAT(groups.at("Browser"), ElementsAre(sampleDay.sessions[1], sampleDay.sessions[3]));
    EXPECT_THAT(groups.at("Zeichnen"), ElementsAre(sampleDay.sessions[0], sampleDay.sessions[2]));
    EXPECT_THAT(sampleDay.durationByApp(later), ElementsAre(Pair("Browser", 34.5), Pair("Zeichnen", 15.5)));
    EXPECT_THAT(DailyAppUsage().groupedByApp(), IsEmpty());
    EXPECT_THAT(DailyAppUsage().durationByApp(later), IsEmpty());
}

TEST(DailyAppUsage, aSessionThatEndsBeforeItBeganIsOfNegativeLength) {
    EXPECT_EQ(session("a", "a", 50, Date{20}).length(later), -30);
}

} // namespace
} // namespace brisklog::test
