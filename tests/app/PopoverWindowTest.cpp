#include "app/PopoverWindow.h"

#include "support/FakeWindowServer.h"
#include "support/screen/ScreenTest.h"

#include <QApplication>
#include <QCursor>
#include <QTest>

namespace brisklog::test {
namespace {

constexpr ScreenRectangle icon{.x = 700, .y = 0, .width = 22, .height = 22};
constexpr QPoint onTheIcon(710, 10);
constexpr QPoint onTheDesktop(400, 750);

class PopoverWindowTest : public ScreenTest {
protected:
    void open() {
        popover.show(icon);
        settle();
    }

    void openAsWindow() {
        popover.showAsWindow();
        settle();
    }

    void pressAt(const QPoint& place) {
        QCursor::setPos(place);
        server.press();
    }

    /// Another program's window becomes active while the pointer is there.
    static void activateAnotherWindow(const QPoint& pointer) {
        QCursor::setPos(pointer);
        QApplication::setActiveWindow(nullptr);
        QTest::qWait(1);
    }

    FakeWindowServer server;
    PopoverWindow popover{{.loadContent = [] {},
                           .makeScreen = [] { return new QWidget; },
                           .quit = [] {},
                           .leaveWindow = [] {},
                           .windowServer = server}};
};

TEST_F(PopoverWindowTest, pressOutsideClosesIt) {
    open();
    pressAt(popover.geometry().center());
    EXPECT_TRUE(popover.isShown());
    pressAt(onTheDesktop);
    EXPECT_FALSE(popover.isShown());
}

TEST_F(PopoverWindowTest, pressOnTheIconIsLeftToTheToggle) {
    open();
    pressAt(onTheIcon);
    EXPECT_TRUE(popover.isShown());
}

TEST_F(PopoverWindowTest, listensForPressesWhileItIsShownAndNoLonger) {
    EXPECT_FALSE(server.isPointerWatched());
    open();
    EXPECT_TRUE(server.isPointerWatched());
    pressAt(onTheDesktop);
    EXPECT_FALSE(server.isPointerWatched());
    openAsWindow();
    EXPECT_FALSE(server.isPointerWatched());
}

TEST_F(PopoverWindowTest, isKeptOutOfTheTaskBarAtEachShowButNotAsAWindow) {
    open();
    popover.close();
    open();
    EXPECT_EQ(server.keptOutOfTaskBar, std::vector<std::uint32_t>(2, std::uint32_t(popover.winId())));
    popover.close();
    openAsWindow();
    EXPECT_EQ(server.keptOutOfTaskBar.size(), 2U);
}

TEST_F(PopoverWindowTest, hasTheProgramsNameInTaskBarAndSwitcher) {
    openAsWindow();
    EXPECT_EQ(popover.windowTitle(), u"Brisklog");
}

TEST_F(PopoverWindowTest, turningElsewhereClosesIt) {
    open();
    activateAnotherWindow(onTheDesktop);
    EXPECT_FALSE(popover.isShown());
}

TEST_F(PopoverWindowTest, turningElsewhereByAPressOnTheIconIsLeftToTheToggle) {
    open();
    activateAnotherWindow(onTheIcon);
    EXPECT_TRUE(popover.isShown());
}

TEST_F(PopoverWindowTest, turningElsewhereClosesItWhereverThePointerSeemsToBeIfNobodyKnows) {
    server.isPointerKnown = false;
    open();
    activateAnotherWindow(onTheIcon);
    EXPECT_FALSE(popover.isShown());
}

TEST_F(PopoverWindowTest, openedAgainAtOnceItIsNotClosedByWhatTheLastClosingLeft) {
    open();
    QCursor::setPos(onTheDesktop);
    popover.close();
    popover.show(icon);
    // The focus loss of the earlier closing arrives only now, before the reopened popover gets the focus.
    QEvent late(QEvent::WindowDeactivate);
    QApplication::sendEvent(&popover, &late);
    QApplication::setActiveWindow(nullptr);
    QTest::qWait(1);
    EXPECT_TRUE(popover.isShown());
    QApplication::setActiveWindow(&popover);
    activateAnotherWindow(onTheDesktop);
    EXPECT_FALSE(popover.isShown());
}

TEST_F(PopoverWindowTest, staysWhileSomethingHoldsIt) {
    open();
    auto first = popover.holdOpen();
    auto second = popover.holdOpen();
    activateAnotherWindow(onTheDesktop);
    pressAt(onTheDesktop);
    EXPECT_TRUE(popover.isShown());
    popover.close();
    EXPECT_TRUE(popover.isShown());
    first.reset();
    pressAt(onTheDesktop);
    EXPECT_TRUE(popover.isShown());
    second.reset();
    pressAt(onTheDesktop);
    EXPECT_FALSE(popover.isShown());
}

TEST_F(PopoverWindowTest, asWindowStaysWhateverTheUserTurnsTo) {
    openAsWindow();
    pressAt(onTheDesktop);
    activateAnotherWindow(onTheDesktop);
    QTest::keyClick(&popover, Qt::Key_Escape);
    EXPECT_TRUE(popover.isShown());
}

TEST_F(PopoverWindowTest, openingItWhileItIsShownLeavesItsFormAndPlace) {
    openAsWindow();
    const QRect window = popover.geometry();
    open();
    EXPECT_EQ(popover.geometry(), window);
    popover.close();
    settle();
    open();
    EXPECT_EQ(popover.size(), QSize(370, 650));
    openAsWindow();
    EXPECT_EQ(popover.size(), QSize(370, 650));
}

} // namespace
} // namespace brisklog::test
