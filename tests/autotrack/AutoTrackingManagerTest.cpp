#include "TrackerFixture.h"

#include <gmock/gmock.h>

namespace brisklog::test {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::SizeIs;

// Start

TEST_F(Tracker, withoutAStoredSwitchItStaysOff) {
    frontmost.show("Editor", "org.Editor");
    start();
    EXPECT_FALSE(manager().isTracking);
    EXPECT_FALSE(manager().currentSession.get());
    EXPECT_THAT(days(), IsEmpty());
    EXPECT_EQ(runLoop.timerCount(), 0u);
    EXPECT_EQ(frontmost.timesAsked, 0);
    EXPECT_THAT(userDefaults.entries(), IsEmpty()) << "starting stores nothing";
    EXPECT_THAT(log.lines, IsEmpty());
}

TEST_F(Tracker, withTheStoredSwitchOnItGoesOnAtOnce) {
    userDefaults.setValue("autoTrackingEnabled", true);
    frontmost.show("Editor", "org.Editor");
    start();
    EXPECT_TRUE(manager().isTracking);
    ASSERT_TRUE(manager().currentSession.get());
    EXPECT_EQ(manager().currentSession.get()->appName, "Editor");
    EXPECT_EQ(manager().currentSession.get()->startTime, clock.now());
    runLoop.advance(3);
    EXPECT_EQ(frontmost.timesAsked, 4);
}

TEST_F(Tracker, whatWasRecordedIsThereAfterARestart) {
    start();
    frontmost.icons["org.Editor"] = "an image";
    manager().startTracking();
    use("Editor", 10);
    use("Browser", 20);
    use("Editor", 5);
    const auto recorded = days();
    ASSERT_THAT(recorded, SizeIs(1));
    EXPECT_THAT(namesOf(recorded[0]), ElementsAre("Editor", "Browser"));
    start();
    EXPECT_EQ(days(), recorded) << "the session open at the end is lost";
    EXPECT_TRUE(manager().isTracking);
}

// Sessions

TEST_F(Tracker, startingOpensASessionForTheApplicationInFrontAtOnce) {
    start();
    frontmost.icons["org.Editor"] = "an image";
    frontmost.show("Editor", "org.Editor");
    manager().startTracking();
    const auto session = manager().currentSession.get().value();
    EXPECT_NE(session.id, Uuid());
    EXPECT_EQ(session.bundleIdentifier, "org.Editor");
    EXPECT_EQ(session.startTime, clock.now());
    EXPECT_EQ(session.endTime, std::nullopt);
    EXPECT_EQ(session.iconData.value().bytes(), "an image");
    EXPECT_THAT(days(), IsEmpty());
}

TEST_F(Tracker, anotherApplicationInFrontClosesTheSessionAndOpensItsOwn) {
    start();
    manager().startTracking();
    const Date began = clock.now().addingSeconds(1);
    use("Editor", 10);
    const auto open = manager().currentSession.get().value();
    use("Browser", 1);
    ASSERT_THAT(days(), SizeIs(1));
    AppUsageSession closed = open;
    closed.endTime = began.addingSeconds(10);
    EXPECT_EQ(days()[0].sessions, std::vector{closed});
    EXPECT_EQ(days()[0].date, inBerlin("2026-11-15T00:00:00"));
    EXPECT_EQ(days()[0].totalDuration(clock.now()), 10);
    EXPECT_EQ(manager().currentSession.get()->startTime, closed.endTime);
    EXPECT_NE(manager().currentSession.get()->id, closed.id);
}

TEST_F(Tracker, aSwitchAwayAndBackIsThreeSessions) {
    start();
    manager().startTracking();
    for (const char* const name : {"Editor", "Browser", "Editor"})
        use(name, 1);
    manager().stopTracking();
    EXPECT_THAT(namesOf(days().at(0)), ElementsAre("Editor", "Browser", "Editor"));
}

TEST_F(Tracker, whatIsInFrontBetweenTwoPollsIsNeverSeen) {
    start();
    manager().startTracking();
    use("Editor", 5);
    use("Blitz", 0.4);
    use("Editor", 5);
    EXPECT_THAT(days(), IsEmpty());
}

TEST_F(Tracker, withNothingInFrontTheSessionStaysOpen) {
    start();
    manager().startTracking();
    use("Editor", 5);
    const auto open = manager().currentSession.get();
    frontmost.showNothing();
    runLoop.advance(60);
    EXPECT_EQ(manager().currentSession.get(), open);
    use("Editor", 5);
    EXPECT_EQ(manager().currentSession.get(), open);
    EXPECT_THAT(days(), IsEmpty());
}

TEST_F(Tracker, whenNobodyTellsAnyMoreTheSessionEnds) {
    using Availability = FrontmostApplication::Availability;
    for (const Availability ended : {Availability::unavailable, Availability::switchedOff}) {
        start();
        manager().clearAllData();
        frontmost.setAvailability(Availability::available);
        manager().startTracking();
        use("Editor", 5);
        frontmost.showNothing();
        frontmost.setAvailability(ended);
        runLoop.advance(60);
        EXPECT_FALSE(manager().currentSession.get());
        ASSERT_THAT(days(), SizeIs(1));
        EXPECT_LE(days()[0].sessions.back().length(clock.now()), 6);
        frontmost.setAvailability(Availability::available);
        use("Browser", 5);
        EXPECT_EQ(manager().currentSession.get()->appName, "Browser");
        manager().stopTracking();
    }
}

TEST_F(Tracker, startingWithNothingInFrontOpensTheFirstSessionLater) {
    start();
    manager().startTracking();
    EXPECT_FALSE(manager().currentSession.get());
    use("Editor", 1);
    EXPECT_TRUE(manager().currentSession.get());
}

TEST_F(Tracker, missingNamesAreReplaced) {
    start();
    manager().startTracking();
    frontmost.show({std::nullopt, std::nullopt});
    runLoop.advance(1);
    EXPECT_EQ(manager().currentSession.get()->appName, "Unbekannte App");
    EXPECT_EQ(manager().currentSession.get()->bundleIdentifier, "unknown");
}

TEST_F(Tracker, applicationsWithoutIdentifierAreOne) {
    start();
    manager().startTracking();
    frontmost.show({"Erste", std::nullopt});
    runLoop.advance(5);
    frontmost.show({"Zweite", std::nullopt});
    runLoop.advance(5);
    EXPECT_THAT(days(), IsEmpty());
    EXPECT_EQ(manager().currentSession.get()->appName, "Erste");
}

TEST_F(Tracker, aChangedNameKeepsTheSessionUnderTheOldOne) {
    start();
    manager().startTracking();
    frontmost.show("Editor", "org.editor");
    runLoop.advance(5);
    frontmost.show("Editor - neu", "org.editor");
    runLoop.advance(5);
    EXPECT_THAT(days(), IsEmpty());
    EXPECT_EQ(manager().currentSession.get()->appName, "Editor");
}

TEST_F(Tracker, applicationsOfTheSameNameAreTwo) {
    start();
    manager().startTracking();
    frontmost.show("Editor", "org.one");
    runLoop.advance(5);
    frontmost.show("Editor", "org.two");
    runLoop.advance(5);
    EXPECT_THAT(days(), SizeIs(1));
}

TEST_F(Tracker, namesThatAreNoTextDoNotKeepTheHistoryFromBeingSaved) {
    start();
    manager().startTracking();
    frontmost.show("Ed\xFF", "org.\xC3");
    runLoop.advance(1);
    use("Browser", 1);
    EXPECT_EQ(days().at(0).sessions.at(0).appName, "Ed\uFFFD");
    EXPECT_THAT(log.lines, IsEmpty());
    start();
    EXPECT_THAT(days(), SizeIs(1));
}

// Icons

TEST_F(Tracker, theIconIsTakenOnceWhenTheSessionOpens) {
    start();
    manager().startTracking();
    use("Editor", 10);
    use("Browser", 10);
    EXPECT_THAT(frontmost.iconsAskedFor, ElementsAre("org.Editor", "org.Browser"));
}

TEST_F(Tracker, withoutAnIconTheSessionIsRecordedAllTheSame) {
    start();
    manager().startTracking();
    use("Editor", 10);
    manager().stopTracking();
    EXPECT_EQ(days().at(0).sessions.at(0).iconData, std::nullopt);
}

TEST_F(Tracker, sessionsWithTheSameIconShareItsBytesAlsoAfterARestart) {
    frontmost.icons["org.Editor"] = std::string(4000, 'e');
    frontmost.icons["org.Other"] = std::string(4000, 'e');
    start();
    manager().startTracking();
    for (const char* const name : {"Editor", "Browser", "Editor", "Other"})
        use(name, 5);
    start();
    manager().stopTracking();
    const auto& sessions = days().at(0).sessions;
    ASSERT_THAT(sessions, SizeIs(4)) << "including the one begun by the restarted tracker";
    const SharedData& icon = sessions[0].iconData.value();
    EXPECT_EQ(sessions[1].iconData, std::nullopt);
    EXPECT_TRUE(sessions[2].iconData->sharesBytesWith(icon));
    EXPECT_TRUE(sessions[3].iconData->sharesBytesWith(icon))
        << "one icon was read back, the other newly taken";
}

// Days

TEST_F(Tracker, aSessionThatRunsPastMidnightIsFiledUnderTheDayItBegan) {
    clock.set(inBerlin("2026-11-15T23:58:59"));
    start();
    manager().startTracking();
    use("Editor", 31 * 60);
    use("Browser", 60);
    manager().stopTracking();
    ASSERT_THAT(days(), SizeIs(2));
    EXPECT_EQ(days()[0].date, inBerlin("2026-11-15T00:00:00"));
    EXPECT_EQ(days()[0].totalDuration(clock.now()), 31 * 60);
    EXPECT_EQ(days()[1].date, inBerlin("2026-11-16T00:00:00"));
}

TEST_F(Tracker, theDayOfAClockChangeIsOneDay) {
    clock.set(inBerlin("2026-10-25T00:30:00"));
    start();
    manager().startTracking();
    for (int hour = 0; hour < 24; ++hour)
        use(hour % 2 == 0 ? "Editor" : "Browser", 3600);
    manager().stopTracking();
    EXPECT_THAT(days(), SizeIs(1)) << "the day has 25 hours";
}

TEST_F(Tracker, withTheClockSetBackTheEarlierDaysRecordGrowsAndNothingIsSorted) {
    start();
    manager().startTracking();
    use("Montag", 5);
    clock.set(inBerlin("2026-11-16T12:00:00"));
    use("Dienstag", 5);
    use("Zweites", 5);
    clock.set(inBerlin("2026-11-15T08:00:00"));
    use("Zurück", 5);
    use("Ende", 5);
    clock.set(inBerlin("2026-11-14T08:00:00"));
    use("Davor", 5);
    use("Ende", 5);
    ASSERT_THAT(days(), SizeIs(3));
    EXPECT_THAT(namesOf(days()[0]), ElementsAre("Montag", "Zurück", "Ende"));
    EXPECT_THAT(namesOf(days()[1]), ElementsAre("Dienstag", "Zweites"));
    EXPECT_THAT(namesOf(days()[2]), ElementsAre("Davor"));
    EXPECT_LT(days()[1].sessions[1].length(clock.now()), 0);
}

TEST_F(Tracker, theTimeZoneOfTheMomentDecidesTheDay) {
    clock.set(inBerlin("2026-11-15T23:30:00"));
    start();
    manager().startTracking();
    use("Editor", 5);
    use("Browser", 5);
    steadyClock.setZone("America/New_York");
    use("Editor", 5);
    ASSERT_THAT(days(), SizeIs(2)) << "in New York, Berlin's midnight falls on the day before";
    EXPECT_EQ(days()[1].date, inBerlin("2026-11-15T06:00:00"));
}

} // namespace
} // namespace brisklog::test
