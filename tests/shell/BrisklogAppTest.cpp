#include "app/shell/BrisklogApp.h"

#include "app/components/Palette.h"
#include "app/shell/PopoverWindow.h"
#include "platform/linux/CairoPdfFacility.h"
#include "platform/qt/QtImages.h"
#include "support/FakeClock.h"
#include "support/MemoryUserDefaults.h"
#include "support/RecordingFiles.h"
#include "support/RecordingLog.h"
#include "support/RecordingLogoPicker.h"
#include "support/RecordingSavePanel.h"
#include "support/TemporaryHome.h"
#include "support/VirtualRunLoop.h"
#include "support/screen/ScreenTest.h"

#include <QAbstractButton>
#include <QApplication>
#include <QLineEdit>
#include <QTest>
#include <algorithm>

namespace brisklog::test {
namespace {

using namespace Qt::StringLiterals;

class SilentStatusItem final : public StatusItem {
public:
    void setDescription(const std::string& /*description*/) override {}

    void setAction(std::function<void()> action) override { click = std::move(action); }

    [[nodiscard]] std::optional<ScreenRectangle> anchor() const override { return std::nullopt; }

    std::function<void()> click;
};

class SilentAppearance final : public SystemAppearance {
public:
    void ask(Answer /*answered*/) override {}
};

/// The whole program over a real home, on the toolkit's offscreen platform.
class BrisklogAppTest : public ScreenTest {
protected:
    BrisklogAppTest() { app.launch(); }

    /// The button with that name in any window that is shown.
    static QAbstractButton* button(const QString& name) {
        for (QWidget* const widget : QApplication::allWidgets()) {
            auto* const candidate = qobject_cast<QAbstractButton*>(widget);
            if (candidate != nullptr && candidate->isVisible() &&
                (candidate->text() == name || candidate->accessibleName() == name ||
                 candidate->toolTip() == name))
                return candidate;
        }
        return nullptr;
    }

    void click(const QString& name) {
        auto* const found = button(name);
        ASSERT_NE(found, nullptr) << name.toStdString();
        QTest::mouseClick(found, Qt::LeftButton);
        settle();
    }

    void startTimer(const QString& task) {
        QTest::keyClicks(QApplication::focusWidget(), task);
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Return);
        runLoop.advance(1);
        settle();
    }

    void turn() {
        runLoop.advance(0);
        settle();
    }

    TemporaryHome home;
    RecordingFiles files;
    MemoryUserDefaults userDefaults;
    FakeClock clock;
    VirtualRunLoop runLoop{clock};
    RecordingLog log;
    RecordingSavePanel savePanel;
    CairoPdfFacility pdf;
    QtImages images;
    RecordingLogoPicker logoPicker;
    SilentAppearance appearance;
    SilentStatusItem* statusItem = nullptr;
    bool hasStatusItem = true;
    int terminations = 0;
    BrisklogApp app{{.files = files,
                     .userDefaults = userDefaults,
                     .clock = clock,
                     .runLoop = runLoop,
                     .log = log,
                     .savePanel = savePanel,
                     .pdf = pdf,
                     .images = images,
                     .logoPicker = logoPicker,
                     .systemAppearance = appearance,
                     .makeStatusItem =
                         [this] {
                             auto item = std::make_unique<SilentStatusItem>();
                             statusItem = item.get();
                             return item;
                         },
                     .hasStatusItem = [this] { return hasStatusItem; },
                     .x11 = nullptr,
                     .terminate = [this] { ++terminations; }}};
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
    EXPECT_EQ(Palette::of(*app.popover()).scheme, ColorScheme::light);
    app.settings().colorScheme = ColorSchemeOption::dark;
    turn();
    EXPECT_EQ(Palette::of(*app.popover()).scheme, ColorScheme::dark);
    EXPECT_EQ(app.popover()->grab().toImage().pixelColor(4, 640), Palette::of(ColorScheme::dark).ground);
    app.settings().colorScheme = ColorSchemeOption::light;
    turn();
    EXPECT_EQ(app.popover()->grab().toImage().pixelColor(4, 640), Palette::of(ColorScheme::light).ground);
}

TEST_F(BrisklogAppTest, everySectionHasAScreenAndMarksItsButton) {
    statusItem->click();
    settle();
    for (const QString& section : {u"Dashboard"_s, u"Profil"_s, u"Einstellungen"_s, u"Zeiterfassung"_s}) {
        click(section);
        QTest::qWait(1);
        EXPECT_NE(button(section), nullptr);
    }
    EXPECT_NE(button(u"Start"_s), nullptr);
}

TEST_F(BrisklogAppTest, aChosenLogoIsShownInTheProfileAndKept) {
    statusItem->click();
    settle();
    click(u"Profil"_s);
    click(u"Logo auswählen"_s);
    ASSERT_EQ(logoPicker.titles, std::vector<std::string>{"Logo auswählen"});
    logoPicker.pending("logo");
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
        QEvent left(QEvent::WindowDeactivate);
        QApplication::sendEvent(app.popover(), &left);
        QTest::qWait(5);
        EXPECT_TRUE(app.popover()->isShown());
    }
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
