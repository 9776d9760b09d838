#include "FakeKWin.h"
#include "FrontmostExpectations.h"
#include "platform/DesktopFixture.h"
#include "platform/frontmost/FrontmostApplicationChoice.h"

#include <filesystem>
#include <optional>

namespace brisklog::test {
namespace {

using namespace Qt::StringLiterals;
using Availability = FrontmostApplication::Availability;

class LateKWinTest : public DesktopWithBus {
protected:
    void SetUp() override {
        DesktopWithBus::SetUp();
        std::filesystem::create_directories(std::getenv("XDG_RUNTIME_DIR"));
        std::filesystem::permissions(std::getenv("XDG_RUNTIME_DIR"), std::filesystem::perms::owner_all);
        qputenv("WAYLAND_DISPLAY", "no-such-compositor");
    }

    void TearDown() override {
        qunsetenv("WAYLAND_DISPLAY");
        DesktopWithBus::TearDown();
    }
};

TEST_F(LateKWinTest, aKWinThatComesLaterIsChosen) {
    const auto chosen = chooseFrontmostApplication(ownWindows);
    ASSERT_TRUE(waitUntil([&] { return chosen->availability() == Availability::unavailable; }));
    const FakeKWin kwin(qEnvironmentVariable("DBUS_SESSION_BUS_ADDRESS"), {});
    EXPECT_TRUE(waitUntil([&] { return chosen->availability() == Availability::available; }));
}

TEST_F(LateKWinTest, onASessionBusThatEndsAndComesBackItIsAskedAgain) {
    // Each bus has an identity of its own, which the addresses in user sessions do not name.
    qputenv("DBUS_SESSION_BUS_ADDRESS", qgetenv("DBUS_SESSION_BUS_ADDRESS").split(',').first());
    std::optional<FakeKWin> kwin(std::in_place, qEnvironmentVariable("DBUS_SESSION_BUS_ADDRESS"),
                                 FakeKWin::Behaviour());
    const auto chosen = chooseFrontmostApplication(ownWindows);
    chosen->beginWatching();
    EXPECT_TRUE(waitUntil([&] { return chosen->availability() == Availability::available; }));
    ASSERT_TRUE(waitUntil([&] { return kwin->hasRun(); }));
    kwin->tell({u"one"_s, u"one"_s, u""_s, u"0"_s});
    EXPECT_TRUE(becomesFrontmost(*chosen, application("one")));
    kwin.reset();
    killBus();
    EXPECT_TRUE(waitUntil([&] { return chosen->availability() == Availability::unavailable; }));
    EXPECT_EQ(chosen->current(), std::nullopt);
    restartBus();
    kwin.emplace(qEnvironmentVariable("DBUS_SESSION_BUS_ADDRESS"), FakeKWin::Behaviour());
    EXPECT_TRUE(waitUntil([&] { return chosen->availability() == Availability::available; }));
    ASSERT_TRUE(waitUntil([&] { return kwin->hasRun(); }));
    kwin->tell({u"two"_s, u"two"_s, u""_s, u"0"_s});
    EXPECT_TRUE(becomesFrontmost(*chosen, application("two")));
}

} // namespace
} // namespace brisklog::test
