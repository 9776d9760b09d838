// Switching the tracker on and off, and clearing what it recorded.

#include "TrackerFixture.h"

#include <gmock/gmock.h>

namespace brisklog::test {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::SizeIs;

// Switching

TEST_F(Tracker, stoppingFilesTheOpenSessionAndEndsThePolling) {
    start();
    manager().startTracking();
    use("Editor", 10);
    manager().stopTracking();
    EXPECT_FALSE(manager().isTracking);
    EXPECT_FALSE(manager().currentSession.get());
    ASSERT_THAT(days(), SizeIs(1));
    EXPECT_EQ(days()[0].sessions[0].endTime, clock.now());
    EXPECT_EQ(runLoop.timerCount(), 0u);
    EXPECT_EQ(truthValue(userDefaults, "autoTrackingEnabled"), false);
    const int asked = frontmost.timesAsked;
    runLoop.advance(10);
    EXPECT_EQ(frontmost.timesAsked, asked);
}

TEST_F(Tracker, stoppingWithoutASessionOnlySaves) {
    start();
    manager().stopTracking();
    EXPECT_EQ(stored(), "[]");
    EXPECT_EQ(truthValue(userDefaults, "autoTrackingEnabled"), false);
    EXPECT_THAT(days(), IsEmpty());
}

TEST_F(Tracker, theSwitchIsStoredWithTheData) {
    start();
    manager().startTracking();
    EXPECT_EQ(truthValue(userDefaults, "autoTrackingEnabled"), true);
    EXPECT_EQ(stored(), "[]");
}

TEST_F(Tracker, startingTwiceLeavesTheEarlierTimerRunning) {
    start();
    frontmost.show("Editor", "org.Editor");
    manager().startTracking();
    manager().startTracking();
    EXPECT_EQ(runLoop.timerCount(), 2u);
    const int asked = frontmost.timesAsked;
    runLoop.advance(1);
    EXPECT_EQ(frontmost.timesAsked, asked + 2);
    manager().stopTracking();
    EXPECT_EQ(runLoop.timerCount(), 1u) << "only the timer that the manager still holds is stopped";
    runLoop.advance(5);
    EXPECT_EQ(frontmost.timesAsked, asked + 2) << "the other timer polls nothing while the switch is off";
}

TEST_F(Tracker, onceTheManagerIsGoneNothingPollsAnyMore) {
    start();
    manager().startTracking();
    manager().startTracking();
    const int asked = frontmost.timesAsked;
    quit();
    runLoop.advance(5);
    EXPECT_EQ(frontmost.timesAsked, asked);
}

TEST_F(Tracker, theDesktopIsWatchedOnlyWhileTracking) {
    start();
    EXPECT_FALSE(frontmost.isWatched);
    manager().startTracking();
    EXPECT_TRUE(frontmost.isWatched);
    manager().stopTracking();
    EXPECT_FALSE(frontmost.isWatched);
}

TEST_F(Tracker, observersAreToldBeforeAValueChanges) {
    start();
    std::vector<std::string> seen;
    const auto subscription = manager().observe([&] {
        const auto& session = manager().currentSession.get();
        seen.push_back((manager().isTracking ? "on " : "off ") + (session ? session->appName : "none"));
    });
    frontmost.show("Editor", "org.Editor");
    manager().startTracking();
    EXPECT_THAT(seen, ElementsAre("off none", "on none"));
    seen.clear();
    manager().stopTracking();
    EXPECT_THAT(seen, ElementsAre("on Editor", "off Editor", "off Editor"));
}

TEST_F(Tracker, whileTheSameApplicationStaysInFrontNothingIsAnnouncedOrWritten) {
    start();
    manager().startTracking();
    use("Editor", 2);
    store("untouched");
    int announcements = 0;
    const auto subscription = manager().observe([&] { ++announcements; });
    runLoop.advance(100);
    EXPECT_EQ(announcements, 0);
    EXPECT_EQ(stored(), "untouched");
}

// Clearing

TEST_F(Tracker, clearingAllLeavesTheOpenSessionAndTheSwitch) {
    start();
    manager().startTracking();
    use("Editor", 5);
    use("Browser", 5);
    const auto open = manager().currentSession.get();
    manager().clearAllData();
    EXPECT_THAT(days(), IsEmpty());
    EXPECT_EQ(stored(), "[]");
    EXPECT_EQ(manager().currentSession.get(), open);
    EXPECT_TRUE(manager().isTracking);
    use("Editor", 5);
    EXPECT_THAT(namesOf(days().at(0)), ElementsAre("Browser"));
}

TEST_F(Tracker, clearingADayRemovesItsRecordAlone) {
    start();
    manager().startTracking();
    for (const char* const time : {"2026-11-14T12:00:00", "2026-11-15T12:00:00", "2026-11-16T12:00:00"}) {
        clock.set(inBerlin(time));
        use("Editor", 5);
        use("Browser", 5);
    }
    auto expected = days();
    ASSERT_THAT(expected, SizeIs(3));
    const auto open = manager().currentSession.get();
    expected.erase(expected.begin() + 1);
    manager().clearDataForDay(inBerlin("2026-11-15T23:59:59"));
    EXPECT_EQ(days(), expected);
    EXPECT_EQ(manager().currentSession.get(), open);
    EXPECT_TRUE(manager().isTracking);
    start();
    EXPECT_EQ(days(), expected);
    manager().clearDataForDay(inBerlin("2026-11-15T12:00:00"));
    EXPECT_EQ(days(), expected) << "there is no record for that day";
}

TEST_F(Tracker, whatIsWrittenIntoTheDaysFromOutsideIsSaved) {
    start();
    manager().startTracking();
    use("Editor", 5);
    use("Browser", 5);
    manager().dailyUsageData.mutate([](auto& days) { days[0].sessions[0].appName = "Anders"; });
    use("Editor", 5);
    start();
    EXPECT_THAT(namesOf(days().at(0)), ElementsAre("Anders", "Browser"));
}

} // namespace
} // namespace brisklog::test
