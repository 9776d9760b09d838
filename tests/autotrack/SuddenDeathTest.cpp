// The program is killed while it works. For a run longer than usual, BRISKLOG_KILLS says how often:
//     BRISKLOG_KILLS=200 build/dev/tests/autotrack/test-autotrack --gtest_filter='*suddenDeath*'

#include "TrackerFixture.h"

#include "platform/defaults/SqliteUserDefaults.h"
#include "support/ChildProcess.h"
#include "support/TemporaryHome.h"

#include <algorithm>
#include <cstdlib>
#include <gmock/gmock.h>
#include <unistd.h>

namespace brisklog::test {
namespace {

using ::testing::IsEmpty;

int killCount() {
    const char* const asked = std::getenv("BRISKLOG_KILLS");
    return asked != nullptr ? std::stoi(asked) : 10;
}

/// The numbers that the sessions have as names, sorted.
std::vector<long> numbersOf(const std::vector<DailyAppUsage>& days) {
    std::vector<long> numbers;
    for (const DailyAppUsage& day : days)
        for (const AppUsageSession& session : day.sessions)
            numbers.push_back(std::stol(session.appName));
    std::ranges::sort(numbers);
    return numbers;
}

class MortalTracker : public Tracker {
public:
    [[nodiscard]] SqliteUserDefaults openDatabase() {
        return {home.configuration() / "defaults.sqlite", clock, log};
    }

    [[nodiscard]] AutoTrackingPlatform platformWith(LargeValueStore& database) {
        AutoTrackingPlatform platform = this->platform();
        return {.frontmost = platform.frontmost,
                .userDefaults = database,
                .clock = platform.clock,
                .runLoop = platform.runLoop,
                .log = platform.log};
    }

    /// Brings one application after another to the front, each named after its number. Now and then the clock
    /// moves a day on, or back.
    [[noreturn]] void workForEver(SharedCounter& acknowledged) {
        auto database = openDatabase();
        AutoTrackingManager tracker(platformWith(database));
        long number = static_cast<long>(numbersOf(tracker.dailyUsageData).size());
        for (int icon = 0; icon < 10; ++icon)
            frontmost.icons["org." + std::to_string(icon)] = std::string(2000, static_cast<char>(icon));
        if (number > 0)
            clock.set(tracker.dailyUsageData->back().sessions.back().endTime.value());
        if (!tracker.isTracking)
            tracker.startTracking();
        for (use(number);; ++number) {
            use(number + 1);
            acknowledged.set(number + 1);
            if (number % 40 == 0)
                clock.set(clock.now().addingSeconds(number % 120 == 0 ? -86400.0 : 86400.0));
        }
    }

    TemporaryHome home;

private:
    void use(long number) {
        frontmost.show(std::to_string(number), "org." + std::to_string(number % 12));
        runLoop.advance(1);
    }
};

TEST_F(MortalTracker, suddenDeathLosesNoSessionWhoseSavingReturned) {
    SharedCounter acknowledged;
    for (int kill = 0; kill < killCount(); ++kill) {
        killWhileWorking(acknowledged, acknowledged.value() + 150, [&] { workForEver(acknowledged); });
        auto database = openDatabase();
        SharedDataPool icons;
        const auto loaded = UsageHistoryStorage(database, clock, icons).load();
        ASSERT_TRUE(loaded.succeeded()) << "after kill " << kill << ": " << loaded.error().description;
        const auto numbers = numbersOf(loaded.value());
        const auto found = static_cast<long>(numbers.size());
        ASSERT_GE(found, acknowledged.value()) << "after kill " << kill;
        ASSERT_LE(found, acknowledged.value() + 1);
        for (long number = 0; number < found; ++number)
            ASSERT_EQ(numbers[static_cast<std::size_t>(number)], number);
        EXPECT_EQ(truthValue(database, "autoTrackingEnabled"), true);
        acknowledged.set(found);
    }
    EXPECT_GT(acknowledged.value(), 150 * killCount());
    EXPECT_THAT(log.lines, IsEmpty());
    std::printf("%d kills, %ld sessions, none lost\n", killCount(), acknowledged.value());
}

} // namespace
} // namespace brisklog::test
