#include "profile/Thumbnails.h"

#include "support/FakeImages.h"
#include "support/TemporaryHome.h"
#include "support/VirtualBackground.h"

#include <gmock/gmock.h>

namespace brisklog::test {
namespace {

namespace fs = std::filesystem;

using testing::ElementsAre;

class ThumbnailsTest : public testing::Test {
protected:
    /// That many image files, named "FIRST.png" and upwards.
    std::vector<fs::path> files(int first, int count) {
        std::vector<fs::path> files;
        for (int i = first; i < first + count; ++i) {
            files.push_back(home.path() / (std::to_string(i) + ".png"));
            writeFile(files.back(), "image 1600 400");
        }
        return files;
    }

    static constexpr PixelSize box{80, 80};

    TemporaryHome home;
    FakeImages images;
    VirtualBackground background;
    int arrivals = 0;
    Thumbnails thumbnails{images, background, [this] { ++arrivals; }};
};

TEST_F(ThumbnailsTest, comeInTheBackgroundFittedIntoTheirBox) {
    const auto shown = files(0, 1);
    thumbnails.show(shown, box);
    EXPECT_EQ(thumbnails.find(shown[0]), nullptr);
    EXPECT_EQ(arrivals, 0);
    background.runAll();
    ASSERT_NE(thumbnails.find(shown[0]), nullptr);
    EXPECT_EQ(thumbnails.find(shown[0])->value().size, (PixelSize{80, 20}));
    EXPECT_EQ(arrivals, 1);
}

TEST_F(ThumbnailsTest, whatIsNoImageIsKnownToBeNone) {
    writeFile(home.path() / "Text.png", "Das ist ein Text.");
    thumbnails.show({home.path() / "Text.png"}, box);
    background.runAll();
    ASSERT_NE(thumbnails.find(home.path() / "Text.png"), nullptr);
    EXPECT_TRUE(thumbnails.find(home.path() / "Text.png")->failed());
    EXPECT_EQ(arrivals, 1);
}

TEST_F(ThumbnailsTest, showingTheSameAgainAsksForNothingTwice) {
    thumbnails.show(files(0, 3), box);
    thumbnails.show(files(0, 3), box);
    background.runAll();
    thumbnails.show(files(0, 3), box);
    background.runAll();
    EXPECT_THAT(images.readFiles, ElementsAre("0.png", "1.png", "2.png"));
}

TEST_F(ThumbnailsTest, whatScrolledByIsNeverDecoded) {
    for (int first = 0; first < 5000; first += 20)
        thumbnails.show(files(first, 20), box);
    background.runAll();
    EXPECT_EQ(images.readFiles.size(), 20U);
    EXPECT_EQ(images.readFiles.front(), "4980.png");
}

TEST_F(ThumbnailsTest, whatScrollsBackIntoViewIsStillThere) {
    for (const int first : {0, 20, 0}) {
        thumbnails.show(files(first, 20), box);
        background.runAll();
    }
    EXPECT_EQ(images.readFiles.size(), 40U);
}

TEST_F(ThumbnailsTest, ofThousandsOnlyTheLastHundredsAreKept) {
    for (int first = 0; first < 2000; first += 20) {
        thumbnails.show(files(first, 20), box);
        background.runAll();
        EXPECT_LE(thumbnails.count(), 240U);
    }
    EXPECT_NE(thumbnails.find(home.path() / "1990.png"), nullptr);
    EXPECT_EQ(thumbnails.find(home.path() / "10.png"), nullptr);
}

TEST_F(ThumbnailsTest, moreOnShowThanAreKeptElsewhereAreAllThere) {
    const auto shown = files(0, 500);
    thumbnails.show(shown, box);
    background.runAll();
    thumbnails.show(shown, box);
    background.runAll();
    EXPECT_EQ(images.readFiles.size(), 500U);
    EXPECT_EQ(thumbnails.count(), 500U);
}

TEST_F(ThumbnailsTest, anotherSizeOfTheBoxMakesThemAnew) {
    const auto shown = files(0, 1);
    thumbnails.show(shown, box);
    background.runAll();
    thumbnails.show(shown, {160, 160});
    EXPECT_EQ(thumbnails.find(shown[0]), nullptr);
    background.runAll();
    EXPECT_EQ(thumbnails.find(shown[0])->value().size, (PixelSize{160, 40}));
}

TEST_F(ThumbnailsTest, clearedItForgetsEverythingAndHearsNothingMore) {
    thumbnails.show(files(0, 2), box);
    background.runWithoutDelivering();
    thumbnails.clear();
    background.deliver();
    background.runAll();
    EXPECT_EQ(arrivals, 0);
    EXPECT_EQ(thumbnails.count(), 0U);
    EXPECT_THAT(images.readFiles, ElementsAre("0.png"));
}

} // namespace
} // namespace brisklog::test
