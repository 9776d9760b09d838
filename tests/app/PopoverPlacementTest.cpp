#include "app/PopoverWindow.h"

#include <gtest/gtest.h>

namespace brisklog::test {
namespace {

constexpr QRect available(0, 28, 1280, 872);
constexpr QSize popover(370, 650);

TEST(PopoverPlacement, hangsCentredUnderAnIconInTheUpperHalf) {
    EXPECT_EQ(popoverPlace(ScreenRectangle{600, 0, 22, 28}, available, popover), QPoint(611 - 185, 28));
}

TEST(PopoverPlacement, standsAboveAnIconInTheLowerHalf) {
    constexpr QRect withPanelBelow(0, 0, 1280, 872);
    EXPECT_EQ(popoverPlace(ScreenRectangle{600, 872, 22, 28}, withPanelBelow, popover),
              QPoint(611 - 185, 872 - 650));
}

TEST(PopoverPlacement, staysInsideTheScreenBesideAnIconInTheCorner) {
    EXPECT_EQ(popoverPlace(ScreenRectangle{1256, 0, 22, 28}, available, popover), QPoint(1280 - 370, 28));
    EXPECT_EQ(popoverPlace(ScreenRectangle{0, 0, 22, 28}, available, popover), QPoint(0, 28));
}

TEST(PopoverPlacement, isAtTheTopRightWithoutAnAnchor) {
    EXPECT_EQ(popoverPlace(std::nullopt, available, popover), QPoint(1280 - 370, 28));
}

TEST(PopoverPlacement, showsItsTopOnAScreenThatIsTooLow) {
    constexpr QRect low(0, 20, 800, 500);
    EXPECT_EQ(popoverPlace(ScreenRectangle{700, 540, 22, 22}, low, popover).y(), 20);
}

} // namespace
} // namespace brisklog::test
