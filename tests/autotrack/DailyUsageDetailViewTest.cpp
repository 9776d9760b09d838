#include "autotrack/DailyUsageDetailView.h"

#include "TrackerFixture.h"
#include "autotrack/AutoTrackingManager.h"

#include <gmock/gmock.h>
#include <limits>

namespace brisklog::test {
namespace {

constexpr Date morning{816426000};

/// Replaces no-break spaces with ordinary ones.
std::string visible(std::string text) {
    for (auto at = text.find("\u00A0"); at != text.npos; at = text.find("\u00A0"))
        text.replace(at, 2, " ");
    return text;
}

class DayDetail : public ::testing::Test {
protected:
    AppUsageSession& add(const std::string& name, TimeInterval seconds) {
        day.sessions.push_back({.id = Uuid::generate(),
                                .appName = name,
                                .bundleIdentifier = "org." + name,
                                .startTime = morning,
                                .endTime = morning.addingSeconds(seconds),
                                .iconData = std::nullopt});
        return day.sessions.back();
    }

    [[nodiscard]] DailyUsageDetailView detail(Date now = morning) const { return {day, now}; }

    /// "Firefox 0 h 1 min 0 s" for each row.
    [[nodiscard]] std::vector<std::string> rows() const {
        std::vector<std::string> texts;
        const DailyUsageDetailView shown = detail();
        for (const AppUsageDetailRow& row : shown.rows())
            texts.push_back(row.appName + " " + visible(row.durationText()));
        return texts;
    }

    DailyAppUsage day{.id = Uuid::generate(), .date = morning, .sessions = {}};
};

TEST_F(DayDetail, sumsEveryApplicationAndListsTheLongestFirst) {
    add("Editor", 60);
    add("Browser", 5407);
    add("Editor", 40);
    add("Terminal", 59);
    EXPECT_EQ(rows(), (std::vector<std::string>{"Browser 1 h 30 min 7 s", "Editor 0 h 1 min 40 s",
                                                "Terminal 0 h 0 min 59 s"}));
    EXPECT_EQ(visible(detail().header()), "Gesamtzeit: 1 h 32 min");
}

TEST_F(DayDetail, equalDurationsStandByName) {
    for (const char* name : {"Zoo", "Anton", "Mitte"})
        add(name, 60);
    EXPECT_THAT(rows(),
                testing::ElementsAre("Anton 0 h 1 min 0 s", "Mitte 0 h 1 min 0 s", "Zoo 0 h 1 min 0 s"));
}

TEST_F(DayDetail, applicationsOfTheSameNameAreOneRowWithTheFirstOnesIcon) {
    add("Notizen", 60).iconData = SharedData::of("first");
    auto& other = add("Notizen", 30);
    other.bundleIdentifier = "com.other";
    other.iconData = SharedData::of("second");
    ASSERT_EQ(detail().rows().size(), 1U);
    EXPECT_EQ(detail().rows()[0].duration, 90);
    EXPECT_EQ(detail().rows()[0].iconData->bytes(), "first");
}

TEST_F(DayDetail, iconIsMissingWhereTheFirstSessionHasNone) {
    add("Notizen", 60);
    add("Notizen", 30).iconData = SharedData::of("second");
    EXPECT_EQ(detail().rows()[0].iconData, std::nullopt);
}

TEST_F(DayDetail, emptyDayHasNoRowsAndNoTime) {
    EXPECT_TRUE(detail().rows().empty());
    EXPECT_EQ(visible(detail().header()), "Gesamtzeit: 0 min");
}

TEST_F(DayDetail, sessionWithoutAnEndCountsUpToTheMomentOfOpening) {
    add("Editor", 0).endTime = std::nullopt;
    const DailyUsageDetailView opened = detail(morning.addingSeconds(120));
    EXPECT_EQ(visible(opened.header()), "Gesamtzeit: 2 min");
    EXPECT_EQ(opened.rows()[0].duration, 120);
}

TEST_F(DayDetail, keepsWhatItWasGiven) {
    add("Editor", 60);
    const DailyUsageDetailView opened = detail();
    add("Browser", 600);
    day.sessions[0].endTime = morning.addingSeconds(1000);
    EXPECT_EQ(opened.rows().size(), 1U);
    EXPECT_EQ(visible(opened.header()), "Gesamtzeit: 1 min");
}

TEST_F(DayDetail, figuresBeyondAllBoundsAreDashesAndStillSorted) {
    add("Endlos", std::numeric_limits<double>::max());
    add("Endlos", std::numeric_limits<double>::max());
    for (int i = 0; i < 40; ++i)
        add("App " + std::to_string(i), i % 7 == 0 ? std::numeric_limits<double>::quiet_NaN() : i);
    EXPECT_EQ(detail().header(), "Gesamtzeit: --");
    EXPECT_EQ(detail().rows().size(), 41U);
    EXPECT_EQ(detail().rows().back().duration, 1);
    EXPECT_EQ(detail().rows().front().durationText(), "--");
}

class TodaysDetail : public Tracker {};

TEST_F(TodaysDetail, leavesOutTheApplicationInFrontRightNow) {
    start();
    manager().startTracking();
    use("Editor", 60);
    use("Browser", 30);
    const DailyUsageDetailView detail(days().at(0), clock.now());
    ASSERT_EQ(detail.rows().size(), 1U);
    EXPECT_EQ(detail.rows()[0].appName, "Editor");
}

} // namespace
} // namespace brisklog::test
