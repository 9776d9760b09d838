#include "platform/panel/ClickPlace.h"

#include <gtest/gtest.h>

namespace brisklog::test {
namespace {

const QList<ScaledScreen> ordinary{{QRect(0, 0, 1280, 900), 1}};
const QList<ScaledScreen> doubled{{QRect(0, 0, 640, 450), 2}};
constexpr std::nullopt_t unknown = std::nullopt;

TEST(ClickPlace, isThePointersWhereverThePanelThinksItIs) {
    EXPECT_EQ(placeOfClick({14, 13}, QPoint(1133, 13), ordinary), QPoint(1133, 13));
    EXPECT_EQ(placeOfClick({0, 0}, QPoint(1133, 13), doubled), QPoint(1133, 13));
}

TEST(ClickPlace, isWhatThePanelReportsWhereThePointerIsUnknown) {
    EXPECT_EQ(placeOfClick({1182, 16}, unknown, ordinary), QPoint(1182, 16));
    EXPECT_EQ(placeOfClick({0, 0}, unknown, ordinary), std::nullopt);
}

TEST(ClickPlace, isConvertedFromTheDisplayServersPixels) {
    EXPECT_EQ(placeOfClick({1182, 16}, unknown, doubled), QPoint(591, 8));
}

TEST(ClickPlace, isConvertedWithTheScaleOfItsScreen) {
    const QList<ScaledScreen> both{{QRect(0, 0, 1000, 800), 1}, {QRect(1000, 0, 500, 400), 2}};
    EXPECT_EQ(placeOfClick({900, 10}, unknown, both), QPoint(900, 10));
    EXPECT_EQ(placeOfClick({1800, 10}, unknown, both), QPoint(1400, 5));
    EXPECT_EQ(placeOfClick({5000, 10}, unknown, both), QPoint(5000, 10)) << "on no screen";
}

TEST(ClickPlace, isInTheMiddleOfTheIcon) {
    EXPECT_EQ(iconAround({611, 11}), (ScreenRectangle{600, 0, 22, 22}));
}

} // namespace
} // namespace brisklog::test
