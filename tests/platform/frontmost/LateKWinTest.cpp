#include "FakeKWin.h"
#include "FrontmostExpectations.h"
#include "platform/DesktopFixture.h"
#include "platform/frontmost/FrontmostApplicationChoice.h"

#include <filesystem>

namespace brisklog::test {
namespace {

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
    const auto chosen = chooseFrontmostApplication();
    ASSERT_TRUE(waitUntil([&] { return chosen->availability() == Availability::unavailable; }));
    const FakeKWin kwin(qEnvironmentVariable("DBUS_SESSION_BUS_ADDRESS"), {});
    EXPECT_TRUE(waitUntil([&] { return chosen->availability() == Availability::available; }));
}

} // namespace
} // namespace brisklog::test
