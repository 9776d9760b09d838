#include "screens/Pictures.h"
#include "screens/autotrack/AutoTrackingBench.h"
#include "support/screen/ScreenReader.h"
#include "ui/controls/Switch.h"
#include "ui/look/Palette.h"

using namespace Qt::StringLiterals;

namespace brisklog::test {
namespace {

class AutoTrackingScreenTest : public AutoTrackingBench {
protected:
    void toggle() { click(u"Automatische Zeiterfassung"_s); }

    void takePictureOf(const QString& name) { takePictures(*screen, name, QPoint(2, 580)); }
};

TEST_F(AutoTrackingScreenTest, showsItsTextsWhileInactive) {
    openPanel();
    EXPECT_TRUE(shows(u"Automatische Zeiterfassung"_s));
    EXPECT_TRUE(shows(u"Inaktiv"_s));
    EXPECT_TRUE(shows(u"November 2026"_s));
    EXPECT_EQ(accessibleNameOf(button(u"Daten löschen"_s)), u"Daten löschen"_s);
    takePictureOf(u"auto-tracking-aus"_s);
}

TEST_F(AutoTrackingScreenTest, switchNamesTheApplicationInFrontAtOnceAndSwitchedOffNoneAnyMore) {
    bench.frontmost.show("LibreOffice Writer", "org.libreoffice.writer");
    openPanel();
    toggle();
    EXPECT_TRUE(manager().isTracking);
    EXPECT_TRUE(shows(u"Aktiv - Erfasst Anwendungsnutzung"_s));
    EXPECT_TRUE(shows(u"Aktuell: LibreOffice Writer"_s));
    for (int daysAgo = 0; daysAgo < 23; ++daysAgo)
        if (daysAgo % 7 != 5 && daysAgo % 7 != 6)
            record(daysAgo, "Editor", 3600);
    QTest::mouseClick(&cell(u"18. November 2026, mit Daten"_s), Qt::LeftButton);
    settle();
    delete dayWindows().at(0);
    takePictureOf(u"auto-tracking"_s);
    toggle();
    EXPECT_FALSE(manager().isTracking);
    EXPECT_TRUE(shows(u"Inaktiv"_s));
    EXPECT_FALSE(shows(u"Aktuell: LibreOffice Writer"_s));
}

TEST_F(AutoTrackingScreenTest, aScreenReaderSwitchesItOnAndOff) {
    openPanel();
    auto& tracking = ScreenReader::of(button(u"Automatische Zeiterfassung"_s));
    ScreenReader reader;
    ScreenReader::act(tracking, QAccessibleActionInterface::toggleAction());
    EXPECT_TRUE(manager().isTracking);
    EXPECT_TRUE(tracking.state().checked);
    ScreenReader::act(tracking, QAccessibleActionInterface::toggleAction());
    EXPECT_FALSE(manager().isTracking);
    EXPECT_FALSE(tracking.state().checked);
    EXPECT_EQ(reader.count(QAccessible::StateChanged, u"Automatische Zeiterfassung"_s), 2);
}

TEST_F(AutoTrackingScreenTest, aScreenReaderHearsTheMonthThatAChevronShows) {
    openPanel();
    ScreenReader reader;
    click(u"Voriger Monat"_s);
    click(u"Nächster Monat"_s);
    EXPECT_EQ(reader.announced(), (QStringList{u"Oktober 2026"_s, u"November 2026"_s}));
}

TEST_F(AutoTrackingScreenTest, aScreenReaderIsToldTheSelectedDay) {
    openPanel();
    ScreenReader reader;
    click(u"10. November 2026"_s);
    EXPECT_TRUE(ScreenReader::of(cell(u"10. November 2026"_s)).state().selected);
    EXPECT_FALSE(ScreenReader::of(cell(u"11. November 2026"_s)).state().selected);
    EXPECT_EQ(reader.count(QAccessible::SelectionAdd, u"10. November 2026"_s), 1);
}

TEST_F(AutoTrackingScreenTest, calendarKeepsItsPlaceWhileNothingIsRecorded) {
    bench.frontmost.show("Editor", "org.editor");
    openPanel();
    const QPoint before = part<CalendarScreen>(*screen).mapTo(screen.get(), QPoint());
    toggle();
    EXPECT_EQ(part<CalendarScreen>(*screen).mapTo(screen.get(), QPoint()), before);
}

TEST_F(AutoTrackingScreenTest, followsTheApplicationInFront) {
    bench.frontmost.show("Editor", "org.editor");
    openPanel();
    toggle();
    bench.frontmost.show("Ein Programm mit einem überaus langen Namen, das in keine Zeile passt", "org.long");
    advance(1);
    EXPECT_TRUE(shows(u"Aktuell: Ein Programm mit einem überaus langen Namen, das in keine Zeile passt"_s));
    takePictureOf(u"auto-tracking-lang"_s);
}

TEST_F(AutoTrackingScreenTest, saysWhereTheDesktopTellsNothingAndStopsSayingIt) {
    const QString reason = u"Dieser Desktop teilt nicht mit, welche Anwendung vorn ist."_s;
    openPanel();
    EXPECT_FALSE(shows(reason));
    ScreenReader reader;
    bench.frontmost.setAvailability(FrontmostApplication::Availability::unavailable);
    settle();
    EXPECT_TRUE(shows(reason));
    EXPECT_EQ(reader.announced(), QStringList{reason});
    takePictureOf(u"auto-tracking-nicht-verfuegbar"_s);
    bench.frontmost.setAvailability(FrontmostApplication::Availability::available);
    settle();
    EXPECT_FALSE(shows(reason));
}

TEST_F(AutoTrackingScreenTest, deletingAsksFirstAndCancellingKeepsEverything) {
    openPanel();
    record(1, "Editor", 60);
    click(u"Daten löschen"_s);
    ASSERT_NE(sheet(), nullptr);
    EXPECT_EQ(sheet()->windowTitle(), u"Daten löschen"_s);
    EXPECT_NE(
        findNamed<QLabel>(*sheet(), u"Möchtest du wirklich alle automatisch erfassten Daten löschen?"_s),
        nullptr);
    button(*sheet(), u"Abbrechen"_s).click();
    settle();
    EXPECT_EQ(manager().dailyUsageData->size(), 1U);
}

TEST_F(AutoTrackingScreenTest, deletingRemovesEveryMarkAndTrackingGoesOn) {
    bench.frontmost.show("Editor", "org.editor");
    openPanel();
    toggle();
    record(1, "Editor", 60);
    EXPECT_NE(findNamed<CalendarDayButton>(*screen, u"19. November 2026, mit Daten"_s), nullptr);
    click(u"Daten löschen"_s);
    button(*sheet(), u"Löschen"_s).click();
    settle();
    EXPECT_TRUE(manager().dailyUsageData->empty());
    EXPECT_NE(findNamed<CalendarDayButton>(*screen, u"19. November 2026"_s), nullptr);
    EXPECT_TRUE(shows(u"Aktuell: Editor"_s));
    advance(30);
    toggle();
    EXPECT_EQ(manager().dailyUsageData->at(0).sessions.at(0).length(bench.clock.now()), 30);
    EXPECT_NE(findNamed<CalendarDayButton>(*screen, u"20. November 2026, mit Daten"_s), nullptr);
}

TEST_F(AutoTrackingScreenTest, hiddenPanelLetsTrackingGoOn) {
    bench.frontmost.show("Editor", "org.editor");
    openPanel();
    toggle();
    screen->hide();
    bench.frontmost.show("Browser", "org.browser");
    advance(5);
    EXPECT_EQ(manager().currentSession.get()->appName, "Browser");
    screen->show();
    settle();
    EXPECT_TRUE(shows(u"Aktuell: Browser"_s));
}

} // namespace
} // namespace brisklog::test
