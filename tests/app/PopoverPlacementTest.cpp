#include "app/PopoverWindow.h"

#include <gtest/gtest.h>

namespace brisklog::test {
namespace {

constexpr QRect available(0, 28, 1280, 872);

TEST(PopoverPlacement, hangsCentredUnderAnIconInTheUpperHalf) {
    EXPECT_EQ(popoverPlace(ScreenRectangle{600, 0, 22, 28}, available).topLeft(), QPoint(611 - 185, 28));
}

TEST(PopoverPlacement, standsAboveAnIconInTheLowerHalf) {
    constexpr QRect withPanelBelow(0, 0, 1280, 872);
    EXPECT_EQ(popoverPlace(ScreenRectangle{600, 872, 22, 28}, withPanelBelow).topLeft(),
              QPoint(611 - 185, 872 - 650));
}

TEST(PopoverPlacement, staysInsideTheScreenBesideAnIconInTheCorner) {
    EXPECT_EQ(popoverPlace(ScreenRectangle{1256, 0, 22, 28}, available).topLeft(), QPoint(1280 - 370, 28));
    EXPECT_EQ(popoverPlace(ScreenRectangle{0, 0, 22, 28}, available).topLeft(), QPoint(0, 28));
}

TEST(PopoverPlacement, isAtTheTopRightWithoutAnAnchor) {
    EXPECT_EQ(popoverPlace(std::nullopt, available).topLeft(), QPoint(1280 - 370, 28));
}

TEST(PopoverPlacement, isAsHighAsALowScreenHasRoom) {
    constexpr QRect low(0, 20, 800, 500);
    EXPECT_EQ(popoverPlace(ScreenRectangle{700, 540, 22, 22}, low), QRect(430, 20, 370, 500));
    EXPECT_EQ(popoverPlace(std::nullopt, low), QRect(430, 20, 370, 500));
}

TEST(PopoverPlacement, leavesOutAPanelThatReservesNoSpace) {
    constexpr QRect whole(0, 0, 1092, 614);
    EXPECT_EQ(popoverPlace(ScreenRectangle{800, 3, 22, 22}, whole), QRect(626, 25, 370, 589));
    EXPECT_EQ(popoverPlace(ScreenRectangle{800, 589, 22, 22}, whole), QRect(626, 0, 370, 589));
    EXPECT_EQ(popoverPlace(ScreenRectangle{3, 300, 22, 22}, whole).height(), 614) << "a panel at the side";
}

TEST(PopoverPlacement, isAsWideAsANarrowScreenHasRoom) {
    EXPECT_EQ(popoverPlace(ScreenRectangle{100, 0, 22, 20}, QRect(0, 20, 320, 700)), QRect(0, 20, 320, 650));
}

TEST(PopoverPlacement, isOfItsOwnSizeWhereThereIsRoom) {
    EXPECT_EQ(popoverPlace(std::nullopt, available).size(), QSize(370, 650));
}

} // namespace
} // namespace brisklog::test
