#include "ui/look/WindowPlace.h"

#include "support/screen/ScreenTest.h"

namespace brisklog::test {
namespace {

class WindowPlace : public ScreenTest {
protected:
    WindowPlace() { window.setMinimumSize(400, 300); }

    QWidget window;
};

TEST_F(WindowPlace, aFramedWindowIsAsLargeAsWantedWhereThereIsRoom) {
    placeInFrame(window, {500, 600}, {0, 0, 1280, 900});
    EXPECT_EQ(window.size(), QSize(500, 600));
    EXPECT_EQ(window.minimumSize(), QSize(400, 300));
}

TEST_F(WindowPlace, aFramedWindowGoesBelowItsSmallestSizeWhereTheScreenIsLower) {
    placeInFrame(window, {500, 600}, {0, 0, 512, 286});
    EXPECT_EQ(window.size(), QSize(500, 242));
    EXPECT_EQ(window.minimumSize(), QSize(400, 242));
}

TEST_F(WindowPlace, aFramedWindowIsCentredWhereItsFrameHasRoom) {
    placeInFrame(window, {500, 600}, {0, 28, 1280, 872});
    EXPECT_EQ(window.pos(), QPoint(390, 164));
}

TEST_F(WindowPlace, aFramedWindowMovesUpSoThatItsFrameEndsWithTheFreeArea) {
    placeInFrame(window, {500, 600}, {0, 28, 1024, 640});
    EXPECT_EQ(window.geometry(), QRect(262, 28, 500, 596));
    placeInFrame(window, {500, 500}, {0, 28, 1024, 560});
    EXPECT_EQ(window.pos(), QPoint(262, 44));
}

} // namespace
} // namespace brisklog::test
