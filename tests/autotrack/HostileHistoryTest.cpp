// Malformed and hostile values under the tracker's key, in a real database.

#include "TrackerFixture.h"

#include "platform/defaults/SqliteUserDefaults.h"
#include "support/ChildProcess.h"
#include "support/Sanitizer.h"
#include "support/StoredData.h"
#include "support/TemporaryHome.h"

#include <fstream>
#include <gmock/gmock.h>
#include <random>

namespace brisklog::test {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::StartsWith;

constexpr std::size_t megabyte = std::size_t{1} << 20;
constexpr std::size_t halfGigabyte = 512 * megabyte;
/// Enough for content that the database cannot deduplicate.
constexpr std::size_t muchData = 96 * megabyte;

/// A figure from the system about this process's memory, in bytes.
std::size_t memoryFigure(const std::string& name) {
    std::ifstream stream("/proc/self/status");
    std::size_t kilobytes = 0;
    for (std::string word; stream >> word;)
        if (word == name + ":")
            stream >> kilobytes;
    return kilobytes * 1024;
}

class HostileHistory : public Tracker {
public:
    [[nodiscard]] SqliteUserDefaults openDatabase() {
        return {home.configuration() / "defaults.sqlite", clock, log};
    }

    [[nodiscard]] AutoTrackingPlatform platformWith(LargeValueStore& database) {
        return {
            .frontmost = frontmost, .userDefaults = database, .clock = clock, .runLoop = runLoop, .log = log};
    }

    /// Stores `beginning`, then `filling` repeated until `size` bytes are reached.
    void storeRepeated(std::size_t size, std::string_view beginning, std::string_view filling) {
        std::string block;
        while (block.size() < megabyte)
            block += filling;
        auto database = openDatabase();
        std::vector parts{beginning};
        for (std::size_t written = 0; written < size; written += block.size())
            parts.emplace_back(block);
        DataInParts data(parts);
        ASSERT_TRUE(database.replaceData("autoTrackingData", 0, data));
    }

    /// Expects an empty history, one line and a working tracker whose memory stays far below the value's
    /// size.
    void expectRefusedCheaply() {
        const auto end = runInChild([this] {
            const std::size_t before = memoryFigure("VmRSS");
            auto database = openDatabase();
            AutoTrackingManager tracker(platformWith(database));
            EXPECT_THAT(tracker.dailyUsageData.get(), IsEmpty());
            EXPECT_THAT(log.lines, ElementsAre(StartsWith(loadComplaint)));
            tracker.startTracking();
            use("Editor", 5);
            tracker.stopTracking();
            if (!underSanitizer) {
                EXPECT_LT(memoryFigure("VmHWM"), before + muchData / 2);
            }
            AutoTrackingManager next(platformWith(database));
            EXPECT_EQ(next.dailyUsageData->size(), 1u);
            EXPECT_THAT(log.lines, ::testing::SizeIs(1));
        });
        EXPECT_EQ(end.signal, 0);
        EXPECT_FALSE(end.failed);
    }

    TemporaryHome home;
};

TEST_F(HostileHistory, halfAGigabyteOfOneText) {
    storeRepeated(halfGigabyte, R"([{"id":")", "abcdefgh");
    expectRefusedCheaply();
}

TEST_F(HostileHistory, aTextWithoutEnd) {
    storeRepeated(muchData, R"([{"unknown":")", "abc defgh");
    expectRefusedCheaply();
}

TEST_F(HostileHistory, bracketsWithoutEnd) {
    storeRepeated(muchData, R"([{"unknown":)", "[[[[[[[[");
    expectRefusedCheaply();
}

TEST_F(HostileHistory, blanksWithoutEnd) {
    storeRepeated(muchData, "[", "        ");
    expectRefusedCheaply();
}

TEST_F(HostileHistory, unknownKeysWithoutEnd) {
    storeRepeated(muchData, R"([{"a":0)", R"(,"unknown":[1,"text",{}])");
    expectRefusedCheaply();
}

TEST_F(HostileHistory, aHugeText) {
    openDatabase().setValue("autoTrackingData", std::string(muchData, 'x'));
    expectRefusedCheaply();
}

/// A history with two icons, long enough to be stored as pieces.
std::string sampleHistory() {
    AppUsageSession session{.id = Uuid::generate(),
                            .appName = "Editor \"x\" Grüße",
                            .bundleIdentifier = "org.editor",
                            .startTime = Date{816426000.25},
                            .endTime = Date{816426010.5},
                            .iconData = SharedData::of(std::string(600, 'a'))};
    DailyAppUsage day{.id = Uuid::generate(), .date = Date{816390000}, .sessions = {session, session}};
    day.sessions[1].iconData = SharedData::of(std::string(900, 'b'));
    const std::vector days{day, day};
    return std::string(json::encode(days, json::Layout::compact).value().bytes());
}

/// Without the position, which may differ: a text stored as one piece is skipped as a whole even when an
/// error lies before it.
std::string withoutByte(const Error& error) {
    return error.description.substr(0, error.description.rfind(" (byte "));
}

TEST_F(HostileHistory, damagedInWhateverWayItReadsInPartsAsItReadsWhole) {
    auto database = openDatabase();
    const std::string whole = sampleHistory();
    std::minstd_rand chance(23);
    int refused = 0;
    for (int round = 0; round < 3000; ++round) {
        std::string damaged = whole;
        for (auto wound = chance() % 3; wound > 0; --wound)
            damaged[chance() % damaged.size()] = R"("\{}[]:,x0 )"[chance() % 11];
        if (round % 10 == 0)
            damaged.resize(chance() % damaged.size());
        if (round % 7 == 0)
            damaged.insert(chance() % damaged.size(), damaged, chance() % damaged.size(), chance() % 1500);
        database.setValue("autoTrackingData", Data{damaged});
        SharedDataPool icons;
        const auto loaded = UsageHistoryStorage(database, clock, icons).load();
        const auto expected = json::decode<std::vector<DailyAppUsage>>(damaged);
        ASSERT_EQ(loaded.succeeded(), expected.succeeded()) << damaged;
        if (loaded.succeeded())
            ASSERT_EQ(loaded.value(), expected.value());
        else
            ASSERT_EQ(withoutByte(loaded.error()), withoutByte(expected.error())) << damaged;
        refused += loaded.failed() ? 1 : 0;
    }
    EXPECT_THAT(log.lines, IsEmpty()) << "the database itself is sound";
    EXPECT_GT(refused, 1000);
    EXPECT_LT(refused, 2900);
}

} // namespace
} // namespace brisklog::test
