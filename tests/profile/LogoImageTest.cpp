#include "profile/LogoImage.h"

#include <gtest/gtest.h>
#include <ostream>

namespace brisklog {

static void PrintTo(const PixelSize& size, std::ostream* stream) {
    *stream << size.width << " x " << size.height;
}

namespace test {
namespace {

TEST(LogoImage, aWideOneIsReducedToItsWidth) { EXPECT_EQ(logoSize({1600, 400}), (PixelSize{800, 200})); }

TEST(LogoImage, aHighOneIsReducedToItsHeight) { EXPECT_EQ(logoSize({400, 1600}), (PixelSize{200, 800})); }

TEST(LogoImage, eightHundredIsNotTooMuch) {
    EXPECT_EQ(logoSize({800, 800}), (PixelSize{800, 800}));
    EXPECT_EQ(logoSize({800, 1}), (PixelSize{800, 1}));
    EXPECT_EQ(logoSize({1, 1}), (PixelSize{1, 1}));
    EXPECT_EQ(logoSize({801, 801}), (PixelSize{800, 800}));
    EXPECT_EQ(logoSize({801, 400}), (PixelSize{800, 400}));
}

TEST(LogoImage, theShorterSideGetsTheNearestNumberOfPixels) {
    EXPECT_EQ(logoSize({1000, 333}), (PixelSize{800, 266}));
    EXPECT_EQ(logoSize({1000, 334}), (PixelSize{800, 267}));
    EXPECT_EQ(logoSize({1200, 1000}), (PixelSize{800, 667}));
}

TEST(LogoImage, aThreadOfAPictureKeepsOnePixel) {
    EXPECT_EQ(logoSize({30000, 1}), (PixelSize{800, 1}));
    EXPECT_EQ(logoSize({1, 30000}), (PixelSize{1, 800}));
}

TEST(LogoImage, fitsIntoABoxWithoutLosingItsShapeOrGrowing) {
    EXPECT_EQ(fittedInto({200, 100}, {800, 200}), (PixelSize{200, 50}));
    EXPECT_EQ(fittedInto({200, 100}, {200, 800}), (PixelSize{25, 100}));
    EXPECT_EQ(fittedInto({200, 100}, {20, 10}), (PixelSize{20, 10}));
}

} // namespace
} // namespace test
} // namespace brisklog
