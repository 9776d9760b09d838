#include "ui/controls/Button.h"

#include "support/screen/ScreenTest.h"
#include "ui/controls/Card.h"
#include "ui/controls/EmptyState.h"
#include "ui/controls/SymbolButton.h"
#include "ui/controls/TextField.h"
#include "ui/lists/RowList.h"
#include "ui/lists/ScrollArea.h"
#include "ui/look/FocusRing.h"
#include "ui/look/Hairline.h"
#include "ui/look/Label.h"
#include "ui/look/Layout.h"
#include "ui/look/Symbols.h"

#include <QAccessible>
#include <QPixmap>
#include <QScrollBar>
#include <QTest>

using namespace Qt::StringLiterals;

namespace brisklog::test {
namespace {

class ComponentButton : public ScreenTest {
protected:
    /// The background of a button, beside its text.
    static QColor groundOf(QWidget& button) {
        button.resize(button.sizeHint());
        return picture(button).pixelColor(6, button.height() / 2);
    }

    const Palette& palette = Palette::of(ColorScheme::light);
};

TEST_F(ComponentButton, primaryFollowsThePointer) {
    Button button(u"Erstellen"_s, Button::Kind::primary);
    EXPECT_EQ(groundOf(button), palette.blueFill);
    hover(button);
    EXPECT_EQ(groundOf(button), palette.primaryHovered);
    button.setDown(true);
    EXPECT_EQ(groundOf(button), palette.primaryPressed);
    button.setEnabled(false);
    EXPECT_PRED2(looksLike, groundOf(button), blendedOver(withOpacity(palette.control, 0.5), palette.ground));
}

TEST_F(ComponentButton, deletingOnesAreRed) {
    Button quiet(u"Projekt löschen"_s, Button::Kind::destructive);
    Button loud(u"Löschen"_s, Button::Kind::alertDestructive);
    EXPECT_PRED2(looksLike, groundOf(quiet), blendedOver(withOpacity(palette.redFill, 0.10), palette.ground));
    EXPECT_EQ(groundOf(loud), palette.redFill);
}

TEST_F(ComponentButton, measuresAsDrawn) {
    EXPECT_EQ(Button(u"Start"_s, Button::Kind::primary).sizeHint().height(), 32);
    EXPECT_EQ(Button(u"Start"_s, Button::Kind::primary, Button::Size::tall).sizeHint().height(), 34);
    EXPECT_EQ(Button(u"Alle"_s, Button::Kind::secondary, Button::Size::small).sizeHint().height(), 26);
    Button plain(u"Speichern"_s);
    Button withSymbol(u"Speichern"_s);
    withSymbol.setSymbol(u"square.and.arrow.down"_s);
    EXPECT_EQ(withSymbol.sizeHint().width(), plain.sizeHint().width() + 15 + 6);
}

TEST_F(ComponentButton, returnPressesTheFocusedOneOnly) {
    QWidget window;
    auto* first = new Button(u"Abbrechen"_s);
    auto* second = new Button(u"Löschen"_s);
    Row{first, second}.applyTo(window);
    QStringList pressed;
    first->onClick([&pressed] { pressed.push_back(u"first"_s); });
    second->onClick([&pressed] { pressed.push_back(u"second"_s); });
    showActive(window);
    first->setFocus();
    QTest::keyClick(first, Qt::Key_Return);
    EXPECT_EQ(pressed, QStringList{u"first"_s});
}

TEST_F(ComponentButton, keepsAnAmpersandInItsCaption) {
    Button button(u"Müller & Söhne"_s);
    EXPECT_EQ(button.caption(), u"Müller & Söhne"_s);
    EXPECT_EQ(accessibleNameOf(button), u"Müller & Söhne"_s);
    EXPECT_TRUE(button.shortcut().isEmpty());
}

TEST_F(ComponentButton, isAButtonWithAPressActionForTheScreenReader) {
    Button button(u"Start"_s);
    int clicks = 0;
    button.onClick([&clicks] { ++clicks; });
    QAccessibleInterface* interface = QAccessible::queryAccessibleInterface(&button);
    EXPECT_EQ(interface->role(), QAccessible::Button);
    ASSERT_NE(interface->actionInterface(), nullptr);
    interface->actionInterface()->doAction(QAccessibleActionInterface::pressAction());
    EXPECT_TRUE(QTest::qWaitFor([&clicks] { return clicks == 1; }));
}

TEST_F(ComponentButton, aClickLeavesTheFocusInTheField) {
    QWidget window;
    auto* field = new TextField;
    auto* button = new Button(u"Start"_s);
    Row{field, button}.applyTo(window);
    showActive(window);
    field->setFocus();
    QTest::mouseClick(button, Qt::LeftButton);
    EXPECT_TRUE(field->hasFocus());
}

TEST_F(ComponentButton, symbolButtonIsNamedAfterItsTooltip) {
    const SymbolButton button(u"trash"_s, u"Alle Daten zurücksetzen"_s);
    EXPECT_EQ(button.toolTip(), u"Alle Daten zurücksetzen"_s);
    EXPECT_EQ(accessibleNameOf(button), u"Alle Daten zurücksetzen"_s);
    EXPECT_EQ(button.sizeHint(), QSize(28, 28));
    EXPECT_EQ(SymbolButton(u"pause.fill"_s, u"Pause"_s, SymbolButton::Size::timer).sizeHint(), QSize(36, 36));
}

TEST_F(ComponentButton, symbolButtonShowsItsGroundOnlyUnderThePointer) {
    SymbolButton deleting(u"trash"_s, u"Löschen"_s, SymbolButton::Size::normal,
                          SymbolButton::Purpose::deleting);
    SymbolButton acting(u"plus"_s, u"Neues Projekt"_s);
    for (SymbolButton* button : {&deleting, &acting}) {
        button->resize(button->sizeHint());
        EXPECT_EQ(picture(*button).pixelColor(14, 2), palette.ground);
        hover(*button);
    }
    EXPECT_PRED2(looksLike, picture(deleting).pixelColor(14, 2),
                 blendedOver(withOpacity(palette.redFill, 0.12), palette.ground));
    EXPECT_PRED2(looksLike, picture(acting).pixelColor(14, 2),
                 blendedOver(withOpacity(palette.control, 0.7), palette.ground));
}

class ComponentFocusRing : public ScreenTest {
protected:
    ComponentFocusRing() {
        auto* cell = new QWidget;
        Row{button}.applyTo(*cell);
        Column{field, space(10), cell, stretch()}.margins(20).applyTo(window);
        window.resize(200, 120);
    }

    [[nodiscard]] bool ringShows() {
        const QPoint outside = button->mapTo(&window, QPoint(button->width() / 2, -2));
        return picture(window).pixelColor(outside) == Palette::of(ColorScheme::light).blue;
    }

    QWidget window;
    TextField* field = new TextField;
    Button* button = new Button(u"Start"_s);
};

TEST_F(ComponentFocusRing, showsAroundWhatTheKeyboardReachedAndGoesWithTheFocus) {
    showActive(window);
    field->setFocus();
    EXPECT_FALSE(ringShows());
    QTest::keyClick(field, Qt::Key_Tab);
    ASSERT_TRUE(button->hasFocus());
    EXPECT_TRUE(ringShows());
    QTest::keyClick(button, Qt::Key_Backtab);
    EXPECT_FALSE(ringShows());
}

TEST_F(ComponentFocusRing, doesNotShowAfterAClick) {
    showActive(window);
    button->setFocus(Qt::MouseFocusReason);
    EXPECT_FALSE(ringShows());
}

TEST_F(ComponentFocusRing, followsWhatItSurrounds) {
    showActive(window);
    button->focusVisibly();
    window.resize(300, 140);
    settle();
    EXPECT_TRUE(ringShows());
}

TEST_F(ComponentFocusRing, survivesTheWidgetsEnd) {
    showActive(window);
    button->focusVisibly();
    EXPECT_TRUE(ringShows());
    delete button;
    settle();
    SUCCEED();
}

class ComponentBox : public ScreenTest {};

TEST_F(ComponentBox, hairlinesAreEquallyThickAtEveryRatioWhereverTheyAre) {
    QWidget window;
    window.resize(20, 80);
    for (int y = 1; y < 80; y += 7)
        (new Hairline(Hairline::Kind::card, Qt::Horizontal, &window))->setGeometry(0, y, 20, 1);
    for (const qreal ratio : {1.0, 1.25, 1.5, 1.75, 2.0}) {
        const QImage drawn = picture(window, ratio);
        std::vector<int> thicknesses;
        for (int y = 1; y < drawn.height(); ++y) {
            const bool isLine = drawn.pixelColor(5, y) == Palette::current().line;
            if (isLine && drawn.pixelColor(5, y - 1) != Palette::current().line)
                thicknesses.push_back(0);
            if (isLine)
                ++thicknesses.back();
        }
        EXPECT_EQ(thicknesses, std::vector<int>(12, static_cast<int>(ratio))) << ratio;
    }
}

TEST_F(ComponentBox, cardViewPadsItsContentAndAppliesNoCorners) {
    auto* content = new QWidget;
    content->setFixedSize(40, 20);
    CardView card(content, 12, 9);
    card.resize(card.sizeHint());
    card.show();
    EXPECT_EQ(card.size(), QSize(64, 44));
    EXPECT_EQ(content->geometry(), QRect(12, 12, 40, 20));
    EXPECT_EQ(card.cornerRadius(), 9);
    const QImage image = picture(card);
    EXPECT_EQ(image.pixelColor(0, 0), image.pixelColor(32, 5));
    EXPECT_TRUE(card.mask().isEmpty());
}

TEST_F(ComponentBox, cardHasGroundLineAndShadow) {
    Card card(Column{}, {});
    card.resize(100, 60);
    const Palette& palette = Palette::of(ColorScheme::light);
    const QImage image = picture(card);
    EXPECT_EQ(image.pixelColor(50, 30), palette.card);
    EXPECT_EQ(image.pixelColor(50, 0), palette.line);
    EXPECT_EQ(image.pixelColor(50, 58), palette.line);
    EXPECT_EQ(image.pixelColor(0, 0), palette.ground);
    EXPECT_LT(image.pixelColor(50, 59).lightness(), palette.ground.lightness());
}

TEST_F(ComponentBox, layoutsPlaceTheirItemsAsWritten) {
    QWidget window;
    auto* top = new QWidget;
    auto* left = new QWidget;
    auto* right = new QWidget;
    top->setFixedHeight(10);
    left->setFixedSize(20, 10);
    right->setFixedSize(30, 10);
    Column{top, space(6), Row{left, stretch(), right}.spacing(4), stretch()}
        .margins({8, 5, 8, 5})
        .applyTo(window);
    window.resize(100, 80);
    window.show();
    EXPECT_EQ(top->geometry(), QRect(8, 5, 84, 10));
    EXPECT_EQ(left->geometry(), QRect(8, 21, 20, 10));
    EXPECT_EQ(right->geometry(), QRect(62, 21, 30, 10));
}

TEST_F(ComponentBox, anExpandingItemTakesTheRoom) {
    QWidget window;
    auto* fixed = new QWidget;
    auto* wide = new QWidget;
    fixed->setFixedSize(20, 10);
    Row{expanding(wide), fixed}.applyTo(window);
    window.resize(100, 10);
    window.show();
    EXPECT_EQ(wide->width(), 80);
}

TEST_F(ComponentBox, applyingAgainReplacesTheLayout) {
    QWidget window;
    auto* first = new QWidget;
    auto* second = new QWidget;
    first->setFixedHeight(10);
    second->setFixedHeight(10);
    Column{first, second, stretch()}.applyTo(window);
    Column{second, first, stretch()}.applyTo(window);
    window.resize(20, 40);
    window.show();
    EXPECT_LT(second->y(), first->y());
}

TEST_F(ComponentBox, emptyStateOffersItsActionOnlyWhenThereIsOne) {
    int pressed = 0;
    EmptyState with({.symbol = u"person.crop.circle"_s,
                     .headline = u"Keine Kunden vorhanden"_s,
                     .sentence = u"Erstellen Sie Kundenprofile."_s,
                     .buttonCaption = u"Ersten Kunden anlegen"_s,
                     .action = [&pressed] { ++pressed; }},
                    EmptyState::Place::sheet);
    findNamed<Button>(with, u"Ersten Kunden anlegen"_s)->click();
    EXPECT_EQ(pressed, 1);
    EmptyState without({.symbol = u"timer"_s, .headline = u"Noch nichts"_s, .sentence = u"Später."_s});
    EXPECT_TRUE(without.findChildren<QAbstractButton*>().isEmpty());
    EXPECT_NE(findNamed<Label>(without, u"Noch nichts"_s), nullptr);
}

TEST_F(ComponentBox, symbolsAreTintedAndSharpAtEveryRatio) {
    for (const qreal ratio : {1.0, 1.5, 2.0}) {
        const QPixmap pixmap = symbolPixmap(u"circle.fill"_s, 16, Qt::red, ratio);
        EXPECT_EQ(pixmap.width(), qRound(16 * ratio));
        EXPECT_EQ(pixmap.devicePixelRatio(), ratio);
        EXPECT_EQ(pixmap.toImage().pixelColor(pixmap.width() / 2, pixmap.width() / 2), QColor(Qt::red));
    }
    EXPECT_TRUE(symbolPixmap(u"no.such.symbol"_s, 16, Qt::red, 1).isNull());
}

TEST_F(ComponentBox, aNewColourOrSymbolIsSeenAtOnce) {
    QWidget window;
    SymbolButton button(u"circle.fill"_s, u"Pausieren"_s, SymbolButton::Size::timer,
                        SymbolButton::Purpose::acting, &window);
    showActive(window);
    const QPoint middle = button.rect().center();
    button.setColor(&Palette::red);
    settle();
    EXPECT_EQ(seenOnScreen(button).pixelColor(middle), Palette::current().red);
    button.setSymbol(u"circle"_s);
    settle();
    EXPECT_NE(seenOnScreen(button).pixelColor(middle), Palette::current().red);
}

TEST_F(ComponentBox, aSymbolIsDrawnOnceForEachSizeAndColour) {
    const auto key = [](int size, const QColor& color) {
        return symbolPixmap(u"timer"_s, size, color, 1).cacheKey();
    };
    EXPECT_EQ(key(16, Qt::red), key(16, Qt::red));
    EXPECT_NE(key(16, Qt::red), key(16, Qt::blue));
    EXPECT_NE(key(16, Qt::red), key(18, Qt::red));
}

class ComponentScrolling : public ScreenTest {
protected:
    ComponentScrolling() {
        area.setContent(content);
        area.resize(200, 100);
    }

    QWidget* content = new QWidget;
    ScrollArea area;
};

TEST_F(ComponentScrolling, theContentHasTheFullWidthAndNoGround) {
    content->setFixedHeight(400);
    showActive(area);
    EXPECT_EQ(content->width(), 200);
    EXPECT_FALSE(content->autoFillBackground());
    EXPECT_EQ(area.verticalScrollBar()->maximum(), 300);
    EXPECT_FALSE(area.verticalScrollBar()->isVisible());
}

TEST_F(ComponentScrolling, theBarShowsWhileHoveredAndOnlyWhereThereIsSomethingToScroll) {
    const auto barShows = [this] {
        const Palette& palette = Palette::of(ColorScheme::light);
        return picture(area).pixelColor(195, 12) != palette.ground;
    };
    content->setFixedHeight(400);
    showActive(area);
    unhover(area);
    EXPECT_FALSE(barShows());
    hover(area);
    EXPECT_TRUE(barShows());
    unhover(area);
    EXPECT_FALSE(barShows());
    content->setFixedHeight(50);
    settle();
    hover(area);
    EXPECT_FALSE(barShows());
}

TEST_F(ComponentScrolling, draggingTheBarScrolls) {
    content->setFixedHeight(400);
    showActive(area);
    hover(area);
    QWidget* bar = area.childAt(195, 8);
    ASSERT_NE(bar, nullptr);
    QTest::mousePress(bar, Qt::LeftButton, {}, QPoint(6, 4));
    QTest::mouseMove(bar, QPoint(6, 304));
    EXPECT_EQ(area.verticalScrollBar()->value(), 300);
    QTest::mouseRelease(bar, Qt::LeftButton, {}, QPoint(6, 4));
}

TEST_F(ComponentScrolling, bringsWhatGetsTheFocusIntoView) {
    auto* top = new TextField;
    auto* bottom = new TextField;
    Column{top, space(400), bottom}.applyTo(*content);
    showActive(area);
    top->setFocus();
    QTest::keyClick(top, Qt::Key_Tab);
    ASSERT_TRUE(bottom->hasFocus());
    EXPECT_GT(area.verticalScrollBar()->value(), 0);
}

} // namespace
} // namespace brisklog::test
