#include "ui/sheets/Alert.h"
#include "ui/sheets/Sheets.h"

#include "support/screen/ScreenTest.h"
#include "ui/controls/Button.h"
#include "ui/controls/TextArea.h"
#include "ui/controls/TextField.h"
#include "ui/look/Label.h"
#include "ui/look/Layout.h"
#include "ui/sheets/SheetHost.h"

#include <QAccessible>
#include <QApplication>
#include <QPointer>
#include <QTest>
#include <QWindow>
#include <functional>

using namespace Qt::StringLiterals;

namespace brisklog::test {
namespace {

/// Counts how many hold it open and how often it got the focus back.
class RecordingHost final : public QWidget, public SheetHost {
public:
    RecordingHost() { resize(370, 650); }

    [[nodiscard]] std::shared_ptr<void> holdOpen() override { return m_token; }

    void takeFocusBack() override {
        holdersWhenFocusCameBack = holders();
        ++focusReturns;
        if (whenFocusComesBack)
            whenFocusComesBack();
    }

    [[nodiscard]] long holders() const { return m_token.use_count() - 1; }

    int focusReturns = 0;
    long holdersWhenFocusCameBack = -1;
    std::function<void()> whenFocusComesBack;

private:
    std::shared_ptr<void> m_token = std::make_shared<int>(0);
};

class ComponentSheet : public ScreenTest {
protected:
    ComponentSheet() { button->setParent(&host); }

    SheetWindow& present() {
        makeControls();
        auto made = std::make_unique<SheetWindow>(u"Neues Projekt"_s, QSize(400, 252));
        auto* body = new QWidget;
        Column{first, second}.margins(20).applyTo(*body);
        made->setBody(body);
        made->addCloseButton(u"Schließen"_s);
        made->addFooterTrailing(cancel);
        made->addFooterTrailing(create);
        made->setMainAction(*create);
        create->onClick([this] { ++created; });
        cancel->onClick([this] { sheet->dismiss(); });
        showActive(host);
        SheetWindow& shown = presentSheet(*button, std::move(made));
        sheet = &shown;
        [[maybe_unused]] const bool isActive = QTest::qWaitForWindowActive(&shown);
        settle();
        return shown;
    }

    /// The sheet owns these once it is presented.
    void makeControls() {
        first = new TextField(u"Projektname eingeben"_s);
        second = new TextArea;
        cancel = new Button(u"Abbrechen"_s);
        create = new Button(u"Erstellen"_s, Button::Kind::primary);
    }

    RecordingHost host;
    Button* button = new Button(u"Öffnen"_s);
    TextField* first = nullptr;
    TextArea* second = nullptr;
    Button* cancel = nullptr;
    Button* create = nullptr;
    QPointer<SheetWindow> sheet;
    int created = 0;
};

TEST_F(ComponentSheet, holdsItsHostWhileOpenAndGivesTheFocusBack) {
    present();
    EXPECT_EQ(host.holders(), 1);
    QTest::keyClick(first, Qt::Key_Escape);
    settle();
    EXPECT_TRUE(sheet.isNull());
    EXPECT_EQ(host.holders(), 0);
    EXPECT_EQ(host.focusReturns, 1);
    EXPECT_EQ(host.holdersWhenFocusCameBack, 1);
}

TEST_F(ComponentSheet, itsWindowIsGoneBeforeTheFocusComesBackHoweverTheUserClosesIt) {
    const auto closed = [this](const std::function<void(SheetWindow&)>& close) {
        SheetWindow& shown = present();
        bool isGone = false;
        host.whenFocusComesBack = [&] { isGone = shown.windowHandle()->handle() == nullptr; };
        close(shown);
        settle();
        EXPECT_TRUE(isGone);
        EXPECT_TRUE(sheet.isNull());
    };
    closed([](SheetWindow& shown) { shown.dismiss(); });
    closed([this](SheetWindow&) { cancel->click(); });
    closed([](SheetWindow& shown) { QTest::keyClick(&shown, Qt::Key_Escape); });
    EXPECT_EQ(host.focusReturns, 3);
}

TEST_F(ComponentSheet, letsTheProgramEndWhileItIsOpen) {
    // Quitting closes all windows and is aborted when one refuses.
    EXPECT_TRUE(present().close());
}

TEST_F(ComponentSheet, liesOverItsWindowModalAndInsideTheScreen) {
    const SheetWindow& shown = present();
    EXPECT_EQ(shown.parentWidget(), &host);
    EXPECT_TRUE(shown.isWindow());
    EXPECT_EQ(shown.windowModality(), Qt::WindowModal);
    EXPECT_EQ(shown.size(), QSize(400, 252));
    EXPECT_TRUE(shown.screen()->availableGeometry().contains(shown.geometry()));
}

TEST_F(ComponentSheet, isCutToTheScreen) {
    showActive(host);
    auto tall = std::make_unique<SheetWindow>(u"Rechnung"_s, QSize(640, 5000));
    tall->setBody(new QWidget);
    const SheetWindow& shown = presentSheet(host, std::move(tall));
    EXPECT_EQ(shown.height(), shown.screen()->availableGeometry().height());
}

TEST_F(ComponentSheet, startsInItsFirstFieldAndGoesThroughBodyFooterHeader) {
    present();
    EXPECT_TRUE(first->hasFocus());
    QTest::keyClick(first, Qt::Key_Tab);
    EXPECT_TRUE(second->hasFocus());
    QTest::keyClick(second, Qt::Key_Tab);
    EXPECT_TRUE(cancel->hasFocus());
    QTest::keyClick(cancel, Qt::Key_Tab);
    EXPECT_TRUE(create->hasFocus());
    QTest::keyClick(create, Qt::Key_Tab);
    ASSERT_NE(QApplication::focusWidget(), nullptr);
    EXPECT_EQ(accessibleNameOf(*QApplication::focusWidget()), u"Schließen"_s);
}

TEST_F(ComponentSheet, returnInAFieldPressesTheMainAction) {
    present();
    QTest::keyClick(first, Qt::Key_Return);
    EXPECT_EQ(created, 1);
    create->setEnabled(false);
    QTest::keyClick(first, Qt::Key_Return);
    EXPECT_EQ(created, 1);
}

TEST_F(ComponentSheet, severalLinesTakeReturnThemselvesButNotControlReturn) {
    present();
    second->setFocus();
    QTest::keyClick(second, Qt::Key_Return);
    EXPECT_EQ(created, 0);
    EXPECT_EQ(second->value(), u"\n"_s);
    QTest::keyClick(second, Qt::Key_Return, Qt::ControlModifier);
    EXPECT_EQ(created, 1);
    EXPECT_EQ(second->value(), u"\n"_s);
}

TEST_F(ComponentSheet, returnOnAFooterButtonPressesThatOne) {
    present();
    int cancelled = 0;
    cancel->onClick([&cancelled] { ++cancelled; });
    cancel->setFocus();
    QTest::keyClick(cancel, Qt::Key_Return);
    EXPECT_EQ(cancelled, 1);
    EXPECT_EQ(created, 0);
}

TEST_F(ComponentSheet, carriesItsTitleForTheWindowAndTheScreenReader) {
    SheetWindow& shown = present();
    EXPECT_EQ(shown.windowTitle(), u"Neues Projekt"_s);
    EXPECT_EQ(accessibleNameOf(shown), u"Neues Projekt"_s);
    EXPECT_EQ(QAccessible::queryAccessibleInterface(&shown)->role(), QAccessible::Dialog);
    EXPECT_NE(findNamed<ElidedLabel>(shown, u"Neues Projekt"_s), nullptr);
}

TEST_F(ComponentSheet, tellsOnceThatItHasClosed) {
    SheetWindow& shown = present();
    int closed = 0;
    shown.onClosed([&closed] { ++closed; });
    shown.dismiss();
    settle();
    EXPECT_EQ(closed, 1);
}

TEST_F(ComponentSheet, fromASheetHoldsTheSameHostAndGivesTheFocusToTheSheet) {
    SheetWindow& outer = present();
    SheetWindow& inner = presentAlert(*first, {.title = u"Löschen?"_s, .message = u"Wirklich."_s}, {});
    EXPECT_EQ(inner.parentWidget(), &outer);
    EXPECT_EQ(host.holders(), 2);
    inner.dismiss();
    settle();
    EXPECT_EQ(host.holders(), 1);
    EXPECT_EQ(host.focusReturns, 0);
    EXPECT_FALSE(sheet.isNull());
}

TEST_F(ComponentSheet, letsGoOfItsHostWhenItsWindowIsDestroyed) {
    auto token = std::make_shared<int>(0);
    {
        QWidget window;
        auto made = std::make_unique<SheetWindow>(u"x"_s, QSize(100, 100), SheetWindow::Chrome::bare);
        made->setBody(new QWidget, SheetWindow::Body::fixed);
        presentSheet(window, std::move(made)).keep(token);
    }
    EXPECT_EQ(token.use_count(), 1);
}

TEST_F(ComponentSheet, worksWithoutAHost) {
    QWidget window;
    showActive(window);
    EXPECT_EQ(sheetHostOf(window), nullptr);
    auto made = std::make_unique<SheetWindow>(u"x"_s, QSize(100, 100), SheetWindow::Chrome::bare);
    made->setBody(new QWidget, SheetWindow::Body::fixed);
    QPointer<SheetWindow> shown = &presentSheet(window, std::move(made));
    shown->dismiss();
    settle();
    EXPECT_TRUE(shown.isNull());
}

/// The pixels of the frame's colour from there on.
int frameFrom(const QImage& drawn, QPoint at, const QPoint& step) {
    const QColor ground = Palette::current().ground;
    int thickness = 0;
    for (; thickness < 5 && !looksLike(drawn.pixelColor(at), ground); at += step)
        ++thickness;
    return thickness;
}

TEST_F(ComponentSheet, itsFrameIsEquallyThickOnAllSidesAtEveryRatio) {
    SheetWindow framed(u"Titel"_s, QSize(301, 251));
    for (const qreal ratio : {1.0, 1.25, 1.5, 1.75, 2.0}) {
        const QImage drawn = picture(framed, ratio);
        const QPoint last(drawn.width() - 1, drawn.height() - 1), middle = last / 2;
        const std::vector<int> sides{frameFrom(drawn, {middle.x(), 0}, {0, 1}),
                                     frameFrom(drawn, {0, middle.y()}, {1, 0}),
                                     frameFrom(drawn, {middle.x(), last.y()}, {0, -1}),
                                     frameFrom(drawn, {last.x(), middle.y()}, {-1, 0})};
        EXPECT_EQ(sides, std::vector<int>(4, static_cast<int>(ratio))) << ratio;
    }
}

TEST_F(ComponentSheet, hasAHeaderOfFiftyTwoAndAFooterOfFiftySix) {
    SheetWindow& shown = present();
    const Palette& palette = Palette::of(ColorScheme::light);
    const QColor line = blendedOver(withOpacity(palette.secondary, 0.2), palette.ground);
    const QImage image = picture(shown);
    EXPECT_PRED2(looksLike, image.pixelColor(200, 51), line);
    EXPECT_PRED2(looksLike, image.pixelColor(200, 252 - 56), line);
    EXPECT_PRED2(looksLike, image.pixelColor(0, 100),
                 blendedOver(withOpacity(palette.secondary, 0.3), palette.ground));
}

class ComponentAlert : public ScreenTest {
protected:
    SheetWindow& present(const AlertContent& content = {
                             .title = u"Projekt löschen?"_s,
                             .message = u"Diese Aktion kann nicht rückgängig gemacht werden."_s}) {
        showActive(host);
        SheetWindow& shown = presentAlert(host, content, [this] {
            ++confirmed;
            wasClosedWhenConfirmed = !alert || !alert->isVisible();
        });
        alert = &shown;
        [[maybe_unused]] const bool isActive = QTest::qWaitForWindowActive(&shown);
        settle();
        return shown;
    }

    RecordingHost host;
    QPointer<SheetWindow> alert;
    int confirmed = 0;
    bool wasClosedWhenConfirmed = false;
};

TEST_F(ComponentAlert, focusesTheCancelButtonVisibly) {
    SheetWindow& shown = present();
    auto* cancel = findNamed<Button>(shown, u"Abbrechen"_s);
    ASSERT_NE(cancel, nullptr);
    EXPECT_TRUE(cancel->hasFocus());
    const QPoint outside = cancel->mapTo(&shown, QPoint(cancel->width() / 2, -2));
    EXPECT_EQ(picture(shown).pixelColor(outside), Palette::of(ColorScheme::light).blue);
}

TEST_F(ComponentAlert, returnRightAfterOpeningCancels) {
    present();
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Return);
    settle();
    EXPECT_TRUE(alert.isNull());
    EXPECT_EQ(confirmed, 0);
}

TEST_F(ComponentAlert, itsActionConfirmsAfterItHasClosed) {
    findNamed<Button>(present(), u"Löschen"_s)->click();
    settle();
    EXPECT_EQ(confirmed, 1);
    EXPECT_TRUE(wasClosedWhenConfirmed);
    EXPECT_TRUE(alert.isNull());
    EXPECT_EQ(host.holders(), 0);
}

TEST_F(ComponentAlert, whoeverWaitsForItsEndHearsOfItBeforeTheAction) {
    std::vector<std::string> heard;
    SheetWindow& shown =
        presentAlert(host, {.title = u"a"_s, .message = u"b"_s}, [&] { heard.push_back("action"); });
    shown.onClosed([&] { heard.push_back("end"); });
    findNamed<QAbstractButton>(shown, u"Löschen"_s)->click();
    settle();
    EXPECT_EQ(heard, (std::vector<std::string>{"end", "action"}));
}

TEST_F(ComponentAlert, escapeCancels) {
    QTest::keyClick(&present(), Qt::Key_Escape);
    settle();
    EXPECT_TRUE(alert.isNull());
    EXPECT_EQ(confirmed, 0);
}

TEST_F(ComponentAlert, holdsTheHostWhileWhatItConfirmedRuns) {
    long holders = -1;
    showActive(host);
    presentAlert(host, {.title = u"a"_s, .message = u"b"_s}, [&] { holders = host.holders(); });
    findNamed<Button>(host, u"Löschen"_s)->click();
    EXPECT_EQ(holders, 1);
}

TEST_F(ComponentAlert, isAsWideAsDrawnWithButtonsOfAtLeastNinetySix) {
    SheetWindow& shown = present();
    EXPECT_EQ(shown.width(), 340);
    EXPECT_GE(findNamed<Button>(shown, u"Abbrechen"_s)->width(), 96);
    EXPECT_EQ(findNamed<Button>(shown, u"Löschen"_s)->width(), 96);
    EXPECT_EQ(findNamed<Button>(shown, u"Löschen"_s)->geometry().right() + 1, 320);
}

TEST_F(ComponentAlert, takesOtherCaptions) {
    SheetWindow& shown = present({.title = u"Hinweis"_s, .message = u"Text"_s, .actionCaption = u"OK"_s});
    EXPECT_NE(findNamed<Button>(shown, u"OK"_s), nullptr);
    EXPECT_EQ(findNamed<Button>(shown, u"Löschen"_s), nullptr);
}

} // namespace
} // namespace brisklog::test
