#include "autotrack/AutoTrackingView.h"

#include "TrackerFixture.h"

namespace brisklog::test {
namespace {

using Availability = FrontmostApplication::Availability;

class AutoTrackingPanel : public Tracker {
protected:
    AutoTrackingPanel() { start(); }

    [[nodiscard]] AutoTrackingView& view() {
        if (!m_view)
            m_view = std::make_unique<AutoTrackingView>(manager(), frontmost);
        return *m_view;
    }

private:
    std::unique_ptr<AutoTrackingView> m_view;
};

TEST_F(AutoTrackingPanel, startsInactiveWithNothingToName) {
    EXPECT_FALSE(view().isTracking());
    EXPECT_EQ(view().status(), "Inaktiv");
    EXPECT_EQ(view().current(), std::nullopt);
    EXPECT_EQ(view().unavailability(), std::nullopt);
    EXPECT_FALSE(view().showingClearDataAlert);
}

TEST_F(AutoTrackingPanel, switchingOnNamesTheApplicationInFrontAtOnce) {
    frontmost.show("Firefox", "org.mozilla.firefox");
    view().setTracking(true);
    EXPECT_EQ(view().status(), "Aktiv - Erfasst Anwendungsnutzung");
    EXPECT_EQ(view().current(), "Aktuell: Firefox");
}

TEST_F(AutoTrackingPanel, switchingOffNamesNothingAnyMore) {
    frontmost.show("Firefox", "org.mozilla.firefox");
    view().setTracking(true);
    runLoop.advance(60);
    view().setTracking(false);
    EXPECT_EQ(view().status(), "Inaktiv");
    EXPECT_EQ(view().current(), std::nullopt);
    EXPECT_EQ(days().at(0).sessions.at(0).length(clock.now()), 60);
}

TEST_F(AutoTrackingPanel, switchingOnWithNothingInFrontNamesNothing) {
    view().setTracking(true);
    EXPECT_EQ(view().status(), "Aktiv - Erfasst Anwendungsnutzung");
    EXPECT_EQ(view().current(), std::nullopt);
}

TEST_F(AutoTrackingPanel, switchingToWhatItIsStartsNoSecondTimer) {
    view().setTracking(true);
    const auto timers = runLoop.timerCount();
    view().setTracking(true);
    EXPECT_EQ(runLoop.timerCount(), timers);
}

TEST_F(AutoTrackingPanel, nameWithLineBreaksStaysOnOneLine) {
    frontmost.show("Zeile\nZwei", "org.lines");
    view().setTracking(true);
    EXPECT_EQ(view().current(), "Aktuell: Zeile Zwei");
}

TEST_F(AutoTrackingPanel, deletingKeepsTrackingAndTheOpenSessionIsFiledLater) {
    view().setTracking(true);
    use("Editor", 60);
    use("Browser", 30);
    ASSERT_EQ(days().size(), 1U);
    view().clearData();
    EXPECT_TRUE(days().empty());
    EXPECT_EQ(stored(), "[]");
    EXPECT_TRUE(view().isTracking());
    EXPECT_EQ(view().current(), "Aktuell: Browser");
    use("Terminal", 10);
    ASSERT_EQ(days().size(), 1U);
    EXPECT_EQ(days()[0].sessions.at(0).appName, "Browser");
    EXPECT_GE(days()[0].sessions.at(0).length(clock.now()), 30);
}

TEST_F(AutoTrackingPanel, deletingWhileOffLeavesItOff) {
    view().setTracking(true);
    use("Editor", 60);
    view().setTracking(false);
    view().clearData();
    EXPECT_TRUE(days().empty());
    EXPECT_FALSE(view().isTracking());
}

TEST_F(AutoTrackingPanel, saysWhereTheDesktopTellsNothing) {
    frontmost.setAvailability(Availability::unavailable);
    EXPECT_EQ(view().unavailability(), "Dieser Desktop teilt nicht mit, welche Anwendung vorn ist.");
    frontmost.setAvailability(Availability::switchedOff);
    EXPECT_EQ(view().unavailability(),
              "Damit Brisklog sieht, welche Anwendung vorn ist, schalte bitte in der App „Erweiterungen“ "
              "die Erweiterung „Brisklog“ ein.");
    frontmost.setAvailability(Availability::notYetKnown);
    EXPECT_EQ(view().unavailability(), std::nullopt);
}

} // namespace
} // namespace brisklog::test
