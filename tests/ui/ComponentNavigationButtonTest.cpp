#include "ui/controls/NavigationButton.h"

#include "support/screen/ScreenTest.h"

#include <QTest>

using namespace Qt::StringLiterals;

namespace brisklog::test {
namespace {

using State = NavigationButtonState;

class NavigationButtonColors : public ::testing::TestWithParam<ColorScheme> {
protected:
    [[nodiscard]] static const Palette& palette() { return Palette::of(GetParam()); }

    [[nodiscard]] static QColor text(const State& state) {
        return navigationButtonForeground(state, palette());
    }

    [[nodiscard]] static QColor ground(const State& state) {
        return navigationButtonBackground(state, palette());
    }
};

TEST_P(NavigationButtonColors, disabledIsHalfTransparentSecondaryWithoutGroundWhateverElseHolds) {
    for (const bool destructive : {false, true})
        for (const bool isSelected : {false, true})
            for (const bool accent : {false, true})
                for (const bool isHovered : {false, true}) {
                    const State state{true, destructive, isSelected, accent, isHovered};
                    EXPECT_EQ(text(state), withOpacity(palette().secondary, 0.5));
                    EXPECT_EQ(ground(state).alpha(), 0);
                }
}

TEST_P(NavigationButtonColors, destructiveIsRedAndWhiteWhileHovered) {
    EXPECT_EQ(text({.destructive = true}), palette().red);
    EXPECT_EQ(text({.destructive = true, .accent = true}), palette().red);
    EXPECT_EQ(text({.destructive = true, .isHovered = true}), palette().white);
}

TEST_P(NavigationButtonColors, destructiveHasNoGroundOfItsOwn) {
    EXPECT_EQ(ground({.destructive = true}).alpha(), 0);
    EXPECT_EQ(ground({.destructive = true, .isHovered = true}),
              withOpacity(palette().controlUnderWhiteText, 0.7));
}

TEST_P(NavigationButtonColors, accentIsBlueAndWhiteWhileHovered) {
    EXPECT_EQ(text({.accent = true}), palette().blue);
    EXPECT_EQ(text({.isSelected = true, .accent = true}), palette().blue);
    EXPECT_EQ(text({.accent = true, .isHovered = true}), palette().white);
    EXPECT_EQ(ground({.accent = true}), withOpacity(palette().blueFill, 0.2));
    EXPECT_EQ(ground({.accent = true, .isHovered = true}), withOpacity(palette().blueFill, 0.9));
    EXPECT_EQ(ground({.isSelected = true, .accent = true, .isHovered = true}),
              withOpacity(palette().blueFill, 0.9));
    EXPECT_EQ(ground({.isSelected = true, .accent = true}), withOpacity(palette().blueFill, 0.2));
}

TEST_P(NavigationButtonColors, ordinaryOnesStandOutWhenSelectedOrHovered) {
    EXPECT_EQ(text({}), palette().secondary);
    EXPECT_EQ(text({.isSelected = true}), palette().text);
    EXPECT_EQ(text({.isHovered = true}), palette().text);
    EXPECT_EQ(ground({}).alpha(), 0);
    EXPECT_EQ(ground({.isSelected = true}), withOpacity(palette().control, 0.8));
    EXPECT_EQ(ground({.isHovered = true}), withOpacity(palette().control, 0.7));
    EXPECT_EQ(ground({.isSelected = true, .isHovered = true}), withOpacity(palette().control, 0.9));
}

INSTANTIATE_TEST_SUITE_P(Schemes, NavigationButtonColors,
                         ::testing::Values(ColorScheme::light, ColorScheme::dark));

class NavigationButtonTest : public ScreenTest {
protected:
    int clicks = 0;
    std::function<void()> count = [this] { ++clicks; };
};

TEST_F(NavigationButtonTest, runsItsActionOnClickAndOnSpaceAndReturn) {
    NavigationButton button({.icon = u"timer"_s, .label = u"Zeiterfassung"_s, .action = count});
    showActive(button);
    QTest::mouseClick(&button, Qt::LeftButton);
    QTest::keyClick(&button, Qt::Key_Space);
    QTest::keyClick(&button, Qt::Key_Return);
    EXPECT_EQ(clicks, 3);
}

TEST_F(NavigationButtonTest, doesNothingWhileDisabled) {
    NavigationButton button(
        {.icon = u"timer"_s, .label = u"Zeiterfassung"_s, .action = count, .isDisabled = true});
    showActive(button);
    QTest::mouseClick(&button, Qt::LeftButton);
    QTest::keyClick(&button, Qt::Key_Return);
    EXPECT_EQ(clicks, 0);
    EXPECT_TRUE(button.state().isDisabled);
    button.setDisabled(false);
    QTest::mouseClick(&button, Qt::LeftButton);
    EXPECT_EQ(clicks, 1);
}

TEST_F(NavigationButtonTest, tracksThePointer) {
    NavigationButton button({.icon = u"timer"_s, .label = u"Zeiterfassung"_s, .action = {}});
    EXPECT_FALSE(button.state().isHovered);
    hover(button);
    EXPECT_TRUE(button.state().isHovered);
    unhover(button);
    EXPECT_FALSE(button.state().isHovered);
}

TEST_F(NavigationButtonTest, saysItsCaptionAsTooltipAndToTheScreenReader) {
    for (const auto form :
         {NavigationButton::Form::bar, NavigationButton::Form::row, NavigationButton::Form::symbolOnly}) {
        const NavigationButton button(
            {.icon = u"gearshape.fill"_s, .label = u"Einstellungen"_s, .action = {}}, form);
        EXPECT_EQ(button.toolTip(), u"Einstellungen"_s);
        EXPECT_EQ(accessibleNameOf(button), u"Einstellungen"_s);
    }
}

TEST_F(NavigationButtonTest, keepsItsSizeWhenSelected) {
    NavigationButton button({.icon = u"gearshape.fill"_s, .label = u"Einstellungen"_s, .action = {}},
                            NavigationButton::Form::bar);
    EXPECT_EQ(button.sizeHint(), QSize(84, 46));
    button.setSelected(true);
    EXPECT_TRUE(button.isSelected());
    EXPECT_EQ(button.sizeHint(), QSize(84, 46));
}

TEST_F(NavigationButtonTest, inARowIsThirtyHighAndAsWideAsItsCaption) {
    const NavigationButton with({.icon = u"trash"_s, .label = u"Löschen"_s, .action = {}});
    const NavigationButton without({.icon = u"trash"_s, .label = u"Löschen"_s, .action = {}},
                                   NavigationButton::Form::symbolOnly);
    EXPECT_EQ(with.sizeHint().height(), 30);
    EXPECT_GT(with.sizeHint().width(), 8 + 16 + 6 + 9);
    EXPECT_EQ(without.sizeHint(), QSize(30, 30));
}

TEST_F(NavigationButtonTest, paintsTheGroundOfItsState) {
    NavigationButton button(
        {.icon = u"timer"_s, .label = u"Zeiterfassung"_s, .action = {}, .isSelected = true},
        NavigationButton::Form::bar);
    button.resize(button.sizeHint());
    const Palette& palette = Palette::of(ColorScheme::light);
    EXPECT_PRED2(looksLike, picture(button).pixelColor(42, 2),
                 blendedOver(withOpacity(palette.control, 0.8), palette.ground));
}

TEST_F(NavigationButtonTest, mayBeDestroyedByItsOwnAction) {
    auto* button = new NavigationButton({.icon = u"trash"_s, .label = u"Löschen"_s, .action = {}});
    button->onClick([button, this] {
        count();
        delete button;
    });
    showActive(*button);
    QTest::mouseClick(button, Qt::LeftButton);
    EXPECT_EQ(clicks, 1);
}

} // namespace
} // namespace brisklog::test
