#include "app/WholeProgram.h"
#include "ui/controls/NavigationButton.h"
#include "ui/look/Palette.h"

#include <QLabel>
#include <QLineEdit>
#include <algorithm>

namespace brisklog::test {
namespace {

using namespace Qt::StringLiterals;

class BrisklogAppTest : public WholeProgram {
protected:
    /// The captions of the marked buttons in the navigation bar.
    [[nodiscard]] QStringList markedSections() const {
        QStringList marked;
        for (const QWidget* const widget : app.popover()->findChildren<QWidget*>())
            if (const auto* const section = dynamic_cast<const NavigationButton*>(widget);
                section != nullptr && section->isVisible() && section->isSelected())
                marked << section->toolTip();
        return marked;
    }

    /// Whether a label in the popover shows that text.
    [[nodiscard]] bool isShown(const QString& text) const {
        return std::ranges::any_of(app.popover()->findChildren<QLabel*>(), [&](const QLabel* label) {
            return label->isVisible() && label->text() == text;
        });
    }
};

TEST_F(BrisklogAppTest, startsWithTheStoreLoadedAndThePopoverClosed) {
    EXPECT_EQ(log.lines, (std::vector<std::string>{"Bereinige UserDefaults von großen Daten...",
                                                   "UserDefaults-Bereinigung abgeschlossen"}));
    EXPECT_FALSE(app.popover()->isShown());
    EXPECT_TRUE(files.written.empty());
}

TEST_F(BrisklogAppTest, theFirstOpeningShowsTheProjectsWithTheKeyboardInTheTask) {
    statusItem->click();
    settle();
    EXPECT_EQ(app.popover()->size(), QSize(370, 650));
    ASSERT_NE(qobject_cast<QLineEdit*>(QApplication::focusWidget()), nullptr);
    startTimer(u"Entwurf"_s);
    EXPECT_EQ(files.written, std::vector<std::string>{"projects.json"});
}

TEST_F(BrisklogAppTest, quittingWithoutTimersEndsAtOnce) {
    app.quit();
    EXPECT_EQ(terminations, 1);
}

TEST_F(BrisklogAppTest, quittingWithARunningTimerAsksFirst) {
    statusItem->click();
    settle();
    startTimer(u"Entwurf"_s);
    app.popover()->close();
    app.quit();
    settle();
    EXPECT_EQ(terminations, 0);
    EXPECT_TRUE(app.popover()->isShown());
    click(u"Abbrechen"_s);
    EXPECT_EQ(terminations, 0);
    app.quit();
    settle();
    click(u"Beenden"_s);
    EXPECT_EQ(terminations, 1);
}

TEST_F(BrisklogAppTest, withoutAPanelItOpensAsAWindowWithItsOwnWayToQuit) {
    hasStatusItem = false;
    app.open();
    settle();
    EXPECT_TRUE(app.popover()->isWindow());
    EXPECT_EQ(app.popover()->windowFlags() & Qt::WindowType_Mask, Qt::Window);
    EXPECT_EQ(app.popover()->size(), QSize(370, 686));
    click(u"Beenden"_s);
    EXPECT_EQ(terminations, 1);
}

TEST_F(BrisklogAppTest, withoutAPanelItOpensAsAWindowThreeSecondsAfterTheStart) {
    hasStatusItem = false;
    runLoop.advance(2.9);
    EXPECT_FALSE(app.popover()->isShown());
    runLoop.advance(0.1);
    EXPECT_TRUE(app.popover()->isShown());
    EXPECT_EQ(app.popover()->windowFlags() & Qt::WindowType_Mask, Qt::Window);
}

TEST_F(BrisklogAppTest, withAPanelItStaysClosed) {
    runLoop.advance(10);
    EXPECT_FALSE(app.popover()->isShown());
}

TEST_F(BrisklogAppTest, theMenuOfTheIconOpensThePopoverAndEndsTheProgram) {
    ASSERT_EQ(statusItem->menu.size(), 2U);
    EXPECT_EQ(statusItem->menu[0].first, "Öffnen");
    EXPECT_EQ(statusItem->menu[1].first, "Beenden");
    statusItem->menu[0].second();
    EXPECT_EQ(app.popover()->size(), QSize(370, 650));
    EXPECT_TRUE(app.popover()->isShown());
    statusItem->menu[1].second();
    EXPECT_EQ(terminations, 1);
}

class InstalledWithItsHandbook : public WholeProgram {
protected:
    InstalledWithItsHandbook() : WholeProgram("file:///usr/share/brisklog/handbuch.html") {}
};

TEST_F(InstalledWithItsHandbook, theMenuOpensItBetweenTheOtherEntries) {
    ASSERT_EQ(statusItem->menu.size(), 3U);
    EXPECT_EQ(statusItem->menu[1].first, "Handbuch");
    EXPECT_EQ(statusItem->menu[2].first, "Beenden");
    statusItem->menu[1].second();
    EXPECT_EQ(openedLinks, std::vector<std::string>{"file:///usr/share/brisklog/handbuch.html"});
    EXPECT_FALSE(app.popover()->isShown());
}

TEST_F(BrisklogAppTest, theWindowBecomesThePopoverOnceAPanelHasCome) {
    hasStatusItem = false;
    app.open();
    hasStatusItem = true;
    statusItem->click();
    EXPECT_FALSE(app.popover()->isShown());
    statusItem->click();
    settle();
    EXPECT_EQ(app.popover()->size(), QSize(370, 650));
    EXPECT_EQ(button(u"Beenden"_s), nullptr);
}

TEST_F(BrisklogAppTest, aChangedColourSchemeRepaintsTheOpenPopoverAtOnce) {
    statusItem->click();
    settle();
    const auto ground = [this] { return app.popover()->palette().color(QPalette::Window); };
    EXPECT_EQ(ground(), Palette::of(ColorScheme::light).ground);
    app.settings().colorScheme = ColorSchemeOption::dark;
    turn();
    EXPECT_EQ(ground(), Palette::of(ColorScheme::dark).ground);
    EXPECT_EQ(app.popover()->grab().toImage().pixelColor(4, 640), Palette::of(ColorScheme::dark).ground);
    app.settings().colorScheme = ColorSchemeOption::light;
    turn();
    EXPECT_EQ(app.popover()->grab().toImage().pixelColor(4, 640), Palette::of(ColorScheme::light).ground);
}

TEST_F(BrisklogAppTest, everySectionHasAScreenAndMarksItsButton) {
    statusItem->click();
    settle();
    for (const auto& [section, shown] : {std::pair{u"Dashboard"_s, u"Arbeitszeitübersicht"_s},
                                         {u"Profil"_s, u"Firmenlogo"_s},
                                         {u"Einstellungen"_s, u"Erscheinung"_s},
                                         {u"Zeiterfassung"_s, u"Aktive Zeiterfassung"_s}}) {
        click(section);
        EXPECT_EQ(markedSections(), QStringList{section});
        EXPECT_TRUE(isShown(shown)) << shown.toStdString();
    }
}

TEST_F(BrisklogAppTest, aChosenLogoIsShownInTheProfileAndKept) {
    statusItem->click();
    settle();
    click(u"Profil"_s);
    click(u"Logo auswählen"_s);
    ASSERT_EQ(logoPicker.titles, std::vector<std::string>{"Logo auswählen"});
    logoPicker.pending("logo");
    settle();
    EXPECT_EQ(logoPicker.closings, 1);
    EXPECT_EQ(readFile(home.applicationSupport() / "Pennavo" / "userLogo.png"), "logo");
    click(u"Logo entfernen"_s);
    EXPECT_FALSE(files.exists(home.applicationSupport() / "Pennavo" / "userLogo.png"));
}

TEST_F(BrisklogAppTest, anInvoiceGoesFromTheTimerToTheChosenFile) {
    statusItem->click();
    settle();
    startTimer(u"Entwurf"_s);
    clock.advance(3600);
    click(u"Stoppen"_s);
    click(u"Rechnung"_s);
    click(u"Alle auswählen"_s);
    click(u"Rechnung erstellen"_s);
    ASSERT_EQ(savePanel.requests.size(), 1U);
    EXPECT_EQ(savePanel.requests[0].suggestedName, "Rechnung_Standardprojekt_2026-11-15.pdf");
    savePanel.answer(home.path() / "Rechnung.pdf");
    EXPECT_TRUE(readFile(home.path() / "Rechnung.pdf").starts_with("%PDF-"));
}

TEST_F(BrisklogAppTest, aHeldPopoverStaysOpenWhenTheUserTurnsElsewhere) {
    statusItem->click();
    settle();
    {
        const auto hold = app.popover()->holdOpen();
        turnElsewhere();
        EXPECT_TRUE(app.popover()->isShown());
    }
    QApplication::setActiveWindow(app.popover());
    turnElsewhere();
    EXPECT_FALSE(app.popover()->isShown());
}

TEST_F(BrisklogAppTest, clickingTheIconUnderASheetKeepsBothAndGivesTheSheetTheKeyboard) {
    statusItem->click();
    settle();
    click(u"Neues Projekt"_s);
    QWidget* const sheet = QApplication::activeModalWidget();
    ASSERT_NE(sheet, nullptr);
    app.popover()->activateWindow();
    settle();
    statusItem->click();
    settle();
    EXPECT_TRUE(app.popover()->isShown());
    EXPECT_TRUE(sheet->isVisible());
    EXPECT_EQ(QApplication::activeWindow(), sheet);
    click(u"Abbrechen"_s);
    statusItem->click();
    EXPECT_FALSE(app.popover()->isShown());
}

TEST_F(BrisklogAppTest, openingItUnderASheetGivesTheSheetTheKeyboard) {
    statusItem->click();
    settle();
    click(u"Neues Projekt"_s);
    QWidget* const sheet = QApplication::activeModalWidget();
    app.popover()->activateWindow();
    app.open();
    settle();
    EXPECT_EQ(QApplication::activeWindow(), sheet);
}

TEST_F(BrisklogAppTest, quittingTwiceAsksOnceAndInFrontOfAnOpenSheet) {
    statusItem->click();
    settle();
    startTimer(u"Entwurf"_s);
    click(u"Neues Projekt"_s);
    QWidget* const sheet = QApplication::activeModalWidget();
    app.quit();
    settle();
    QWidget* const question = QApplication::activeModalWidget();
    EXPECT_EQ(question->windowTitle(), u"Brisklog beenden?"_s);
    EXPECT_EQ(question->parentWidget(), sheet);
    app.quit();
    settle();
    EXPECT_EQ(QApplication::activeModalWidget(), question);
    QTest::keyClick(question, Qt::Key_Escape);
    settle();
    EXPECT_EQ(QApplication::activeModalWidget(), sheet);
    EXPECT_EQ(terminations, 0);
    app.quit();
    settle();
    click(u"Beenden"_s);
    EXPECT_EQ(terminations, 1);
}

TEST_F(BrisklogAppTest, escapeClosesThePopoverOnly) {
    statusItem->click();
    settle();
    QTest::keyClick(app.popover(), Qt::Key_Escape);
    EXPECT_FALSE(app.popover()->isShown());
    EXPECT_EQ(terminations, 0);
}

} // namespace
} // namespace brisklog::test
