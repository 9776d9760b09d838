#include "app/WholeProgram.h"
#include "ui/look/Palette.h"

#include <QWindow>

namespace brisklog::test {
namespace {

using namespace Qt::StringLiterals;

class WindowWithoutPanel : public WholeProgram {
protected:
    WindowWithoutPanel() {
        hasStatusItem = false;
        app.open();
        settle();
    }

    /// As the window manager's button or Alt-F4 does.
    void closeWindow() {
        app.popover()->windowHandle()->close();
        settle();
    }

    void switchTrackingOn() {
        click(u"Auto-Tracking"_s);
        click(u"Automatische Zeiterfassung"_s);
    }

    /// The window has a button of that name too.
    static void confirm() {
        QTest::mouseClick(findNamed<QAbstractButton>(*QApplication::activeModalWidget(), u"Beenden"_s),
                          Qt::LeftButton);
        settle();
    }

    static QString question() {
        const QWidget* const alert = QApplication::activeModalWidget();
        return alert == nullptr ? QString() : alert->accessibleDescription();
    }
};

TEST_F(WindowWithoutPanel, closingItEndsTheProgramWhichNobodyWouldSeeAnyMore) {
    closeWindow();
    EXPECT_EQ(terminations, 1);
}

TEST_F(WindowWithoutPanel, closingItAsksWhileTimersRun) {
    startTimer(u"Entwurf"_s);
    closeWindow();
    EXPECT_EQ(terminations, 0);
    EXPECT_TRUE(app.popover()->isShown());
    EXPECT_EQ(question(), u"Laufende Timer gehen beim Beenden verloren."_s);
    click(u"Abbrechen"_s);
    EXPECT_TRUE(app.popover()->isShown());
    closeWindow();
    confirm();
    EXPECT_EQ(terminations, 1);
}

TEST_F(WindowWithoutPanel, closingItAsksWhileTrackingRecords) {
    switchTrackingOn();
    closeWindow();
    EXPECT_EQ(terminations, 0);
    EXPECT_EQ(question(), u"Die automatische Zeiterfassung ruht, bis Brisklog wieder gestartet wird."_s);
    confirm();
    EXPECT_EQ(terminations, 1);
}

TEST_F(WindowWithoutPanel, closingItNamesBothTimersAndTracking) {
    startTimer(u"Entwurf"_s);
    switchTrackingOn();
    closeWindow();
    EXPECT_EQ(question(), u"Laufende Timer gehen beim Beenden verloren. Die automatische Zeiterfassung ruht, "
                          "bis Brisklog wieder gestartet wird."_s);
}

TEST_F(WindowWithoutPanel, closingItEndsTheProgramWhereTheDesktopTellsTrackingNothing) {
    switchTrackingOn();
    frontmost.setAvailability(FrontmostApplication::Availability::unavailable);
    closeWindow();
    EXPECT_EQ(terminations, 1);
}

TEST_F(WindowWithoutPanel, closingItOnlyHidesItOnceAPanelShowsTheIcon) {
    hasStatusItem = true;
    closeWindow();
    EXPECT_EQ(terminations, 0);
    EXPECT_FALSE(app.popover()->isShown());
}

TEST_F(WindowWithoutPanel, itsStripIsACardInBothSchemes) {
    for (const ColorScheme scheme : {ColorScheme::light, ColorScheme::dark}) {
        applyColorScheme(scheme);
        const QImage window = picture(*app.popover());
        EXPECT_EQ(window.pixelColor(3, window.height() - 10), Palette::of(scheme).card);
    }
}

} // namespace
} // namespace brisklog::test
