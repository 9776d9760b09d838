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
    resizeInFrame(window, {500, 600}, {0, 0, 1280, 900});
    EXPECT_EQ(window.size(), QSize(500, 600));
    EXPECT_EQ(window.minimumSize(), QSize(400, 300));
}

TEST_F(WindowPlace, aFramedWindowGoesBelowItsSmallestSizeWhereTheScreenIsLower) {
    resizeInFrame(window, {500, 600}, {0, 0, 512, 286});
    EXPECT_EQ(window.size(), QSize(500, 242));
    EXPECT_EQ(window.minimumSize(), QSize(400, 242));
}

} // namespace
} // namespace brisklog::test
