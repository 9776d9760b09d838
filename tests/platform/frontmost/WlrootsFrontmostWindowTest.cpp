#include "platform/frontmost/WlrootsFrontmostWindow.h"

#include "FakeCompositor.h"
#include "FrontmostExpectations.h"
#include "platform/DesktopFixture.h"

#include <gmock/gmock.h>

namespace brisklog::test {
namespace {

using Availability = FrontmostApplication::Availability;
using Offer = FakeCompositor::Offer;

/// A fake compositor that reports whatever a test wants.
class WlrootsFrontmostWindowTest : public Desktop {
protected:
    void SetUp() override {
        startCompositor();
        m_frontmost = applicationsBy<WlrootsFrontmostWindow>();
        frontmost().beginWatching();
        ASSERT_TRUE(waitUntil([this] { return compositor().listeners() == 1; }));
    }

    FakeCompositor& compositor() { return *m_compositor; }

    FrontmostApplication& frontmost() { return *m_frontmost; }

    void startCompositor() { m_compositor.emplace(Offer::windows); }

    void endCompositor() { m_compositor.reset(); }

    wl_resource* open(const std::string& id, const std::vector<std::uint32_t>& states = {}) {
        auto* const window = compositor().openWindow();
        compositor().tellTitle(window, "Title of " + id);
        compositor().tellApplicationId(window, id);
        compositor().tellState(window, states);
        compositor().tellDone(window);
        return window;
    }

    void tellState(wl_resource* window, const std::vector<std::uint32_t>& states) {
        compositor().tellState(window, states);
        compositor().tellDone(window);
    }

    [[nodiscard]] bool becomes(const std::optional<DesktopApplication>& expected) {
        return becomesFrontmost(frontmost(), expected);
    }

    const std::vector<std::uint32_t> active{FakeCompositor::maximized, FakeCompositor::activated};

private:
    std::optional<FakeCompositor> m_compositor;
    std::unique_ptr<FrontmostApplication> m_frontmost;
};

TEST_F(WlrootsFrontmostWindowTest, theActiveWindowsApplicationIsInFront) {
    EXPECT_EQ(frontmost().current(), std::nullopt);
    open("editor");
    auto* const browser = open("browser", active);
    EXPECT_TRUE(becomes(application("browser")));
    tellState(browser, {FakeCompositor::maximized});
    EXPECT_TRUE(becomes(bareDesktop));
}

TEST_F(WlrootsFrontmostWindowTest, ofTwoActiveWindowsTheOneActivatedLastIsInFront) {
    auto* const editor = open("editor");
    auto* const browser = open("browser", active);
    tellState(editor, active);
    EXPECT_TRUE(becomes(application("editor")));
    tellState(browser, {});
    EXPECT_TRUE(becomes(application("editor")));
    tellState(browser, active);
    EXPECT_TRUE(becomes(application("browser")));
}

TEST_F(WlrootsFrontmostWindowTest, aWindowThatClosesIsGivenBack) {
    auto* const editor = open("editor", active);
    EXPECT_TRUE(becomes(application("editor")));
    compositor().tellClosed(editor);
    EXPECT_TRUE(waitUntil([this] { return compositor().heldWindows() == 0; }));
    EXPECT_EQ(frontmost().current(), application("editor")) << "a gap at first";
    EXPECT_EQ(frontmost().current(), bareDesktop);
    open("browser", active);
    EXPECT_TRUE(becomes(application("browser")));
}

TEST_F(WlrootsFrontmostWindowTest, manyWindowsComeAndGo) {
    constexpr int many = 1000;
    // With more pending than the socket buffer holds, the compositor would disconnect us.
    constexpr int atOnce = 20;
    auto* const stays = open("stays", active);
    for (int count = 0; count < many; ++count) {
        compositor().tellClosed(open("goes", active));
        if (count % atOnce == 0) {
            ASSERT_TRUE(waitUntil([this] { return compositor().heldWindows() == 1; }));
        }
    }
    EXPECT_TRUE(waitUntil([this] { return compositor().heldWindows() == 1; }));
    EXPECT_TRUE(becomes(application("stays")));
    compositor().tellClosed(stays);
    EXPECT_TRUE(becomes(bareDesktop));
}

TEST_F(WlrootsFrontmostWindowTest, applicationIdsMayComeLateAndChange) {
    auto* const window = compositor().openWindow();
    tellState(window, active);
    EXPECT_TRUE(becomes(DesktopApplication{}));
    compositor().tellApplicationId(window, "early");
    compositor().tellDone(window);
    EXPECT_TRUE(becomes(application("early")));
    compositor().tellApplicationId(window, "late");
    compositor().tellDone(window);
    EXPECT_TRUE(becomes(application("late")));
    compositor().tellApplicationId(window, "");
    compositor().tellDone(window);
    EXPECT_TRUE(becomes(DesktopApplication{}));
}

TEST_F(WlrootsFrontmostWindowTest, strangeTextsAreMadeNames) {
    auto* const window = open("Two\nLines\x1b[1m", active);
    EXPECT_TRUE(becomes(application("Two Lines [1m")));
    // About as much as a message can hold.
    compositor().tellApplicationId(window, std::string(4000, 'x'));
    compositor().tellDone(window);
    EXPECT_TRUE(becomes(application(std::string(256, 'x'))));
    compositor().tellApplicationId(window, "\xff\xfe");
    compositor().tellDone(window);
    EXPECT_TRUE(becomes(application("ÿþ")));
}

TEST_F(WlrootsFrontmostWindowTest, aCompositorThatEndsIsUnavailable) {
    open("editor", active);
    EXPECT_TRUE(becomes(application("editor")));
    EXPECT_EQ(frontmost().availability(), Availability::available);
    int announcements = 0;
    const auto subscription = frontmost().observe([&] { ++announcements; });
    endCompositor();
    EXPECT_TRUE(waitUntil([&] { return announcements > 0; }));
    EXPECT_EQ(frontmost().availability(), Availability::unavailable);
    EXPECT_TRUE(becomes(std::nullopt));
    frontmost().endWatching();
    frontmost().beginWatching();
    EXPECT_EQ(frontmost().current(), std::nullopt);
    EXPECT_EQ(frontmost().availability(), Availability::unavailable);
}

TEST_F(WlrootsFrontmostWindowTest, aCompositorThatTellsNothingMoreIsUnavailableUntilAskedAnew) {
    open("editor", active);
    EXPECT_TRUE(becomes(application("editor")));
    const auto subscription = frontmost().observe([this] {
        if (frontmost().availability() == Availability::unavailable)
            frontmost().endWatching();
    });
    compositor().tellFinished();
    EXPECT_TRUE(waitUntil([this] { return compositor().listeners() == 0; }));
    EXPECT_EQ(frontmost().availability(), Availability::unavailable);
    EXPECT_EQ(frontmost().current(), std::nullopt);
    frontmost().beginWatching();
    EXPECT_EQ(frontmost().availability(), Availability::available);
    ASSERT_TRUE(waitUntil([this] { return compositor().listeners() == 1; }));
    open("browser", active);
    EXPECT_TRUE(becomes(application("browser")));
}

TEST_F(WlrootsFrontmostWindowTest, whatIsWithdrawnIsUnavailable) {
    open("editor", active);
    EXPECT_TRUE(becomes(application("editor")));
    compositor().withdraw();
    EXPECT_TRUE(waitUntil([this] { return frontmost().availability() == Availability::unavailable; }));
    EXPECT_TRUE(becomes(std::nullopt));
}

TEST_F(WlrootsFrontmostWindowTest, unwatchedNothingIsListenedTo) {
    open("editor", active);
    EXPECT_TRUE(becomes(application("editor")));
    frontmost().endWatching();
    EXPECT_EQ(frontmost().current(), std::nullopt);
    EXPECT_TRUE(waitUntil([this] { return compositor().listeners() == 0; }));
    EXPECT_EQ(frontmost().availability(), Availability::available);
    frontmost().beginWatching();
    frontmost().beginWatching();
    EXPECT_TRUE(waitUntil([this] { return compositor().listeners() == 1; }));
}

TEST_F(WlrootsFrontmostWindowTest, whatTheCompositorHasNotToldYetIsUnknown) {
    EXPECT_TRUE(becomes(bareDesktop));
    frontmost().endWatching();
    frontmost().beginWatching();
    for (int times = 0; times < 3; ++times)
        EXPECT_EQ(frontmost().current(), std::nullopt);
    EXPECT_TRUE(becomes(bareDesktop));
}

TEST_F(WlrootsFrontmostWindowTest, aConnectionThatTheCompositorDropsIsMadeAnew) {
    open("editor", active);
    EXPECT_TRUE(becomes(application("editor")));
    compositor().dropListeners();
    EXPECT_TRUE(becomes(std::nullopt));
    EXPECT_EQ(frontmost().availability(), Availability::available) << "only one of the connections is gone";
    ASSERT_TRUE(waitUntil([this] { return compositor().listeners() == 1; }));
    open("browser", active);
    EXPECT_TRUE(becomes(application("browser")));
}

TEST_F(WlrootsFrontmostWindowTest, aCompositorThatComesBackIsFoundAgain) {
    open("editor", active);
    EXPECT_TRUE(becomes(application("editor")));
    const QByteArray name = qgetenv("WAYLAND_DISPLAY");
    endCompositor();
    EXPECT_TRUE(waitUntil([this] { return frontmost().availability() == Availability::unavailable; }));
    frontmost().endWatching();
    frontmost().beginWatching();
    EXPECT_EQ(frontmost().current(), std::nullopt);
    startCompositor();
    ASSERT_EQ(qgetenv("WAYLAND_DISPLAY"), name);
    EXPECT_TRUE(waitUntil([this] { return frontmost().availability() == Availability::available; }));
    ASSERT_TRUE(waitUntil([this] { return compositor().listeners() == 1; }));
    open("browser", active);
    EXPECT_TRUE(becomes(application("browser")));
}

using OtherCompositors = Desktop;

TEST_F(OtherCompositors, withoutTheProtocolItIsUnavailable) {
    const FakeCompositor compositor(Offer::nothing);
    WlrootsFrontmostWindow frontmost;
    EXPECT_EQ(frontmost.availability(), Availability::notYetKnown);
    int announcements = 0;
    const auto subscription = frontmost.observe([&] { ++announcements; });
    EXPECT_TRUE(waitUntil([&] { return announcements > 0; }));
    EXPECT_EQ(announcements, 1);
    EXPECT_EQ(frontmost.availability(), Availability::unavailable);
    frontmost.beginWatching();
    EXPECT_EQ(frontmost.inFront(), InFront());
}

TEST_F(OtherCompositors, withoutACompositorItIsUnavailableAtOnce) {
    qputenv("WAYLAND_DISPLAY", "no-such-compositor");
    WlrootsFrontmostWindow frontmost;
    EXPECT_EQ(frontmost.availability(), Availability::unavailable);
    frontmost.beginWatching();
    EXPECT_EQ(frontmost.inFront(), InFront());
    qunsetenv("WAYLAND_DISPLAY");
}

} // namespace
} // namespace brisklog::test
