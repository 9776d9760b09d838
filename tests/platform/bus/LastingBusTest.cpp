#include "platform/bus/LastingBus.h"

#include "platform/DesktopFixture.h"

#include <gtest/gtest.h>

namespace brisklog::test {
namespace {

/// The bus's address does not name its identity, which each bus has of its own: so it is in user sessions.
class LastingBusTest : public DesktopWithBus {
protected:
    void SetUp() override {
        DesktopWithBus::SetUp();
        qputenv("DBUS_SESSION_BUS_ADDRESS", qgetenv("DBUS_SESSION_BUS_ADDRESS").split(',').first());
    }
};

TEST_F(LastingBusTest, aBusThatEndsAndComesBackIsFoundAgain) {
    int changes = 0;
    LastingBus lasting(QDBusConnection::SessionBus, [&] { ++changes; });
    EXPECT_TRUE(lasting.connection().isConnected());
    for (const int expected : {2, 4}) {
        killBus();
        EXPECT_TRUE(waitUntil([&] { return changes == expected - 1; }));
        EXPECT_FALSE(lasting.connection().isConnected());
        restartBus();
        EXPECT_TRUE(waitUntil([&] { return changes == expected; }));
        EXPECT_TRUE(lasting.connection().isConnected());
    }
}

TEST_F(LastingBusTest, aBusThatWasNeverThereIsNotWaitedFor) {
    killBus();
    int changes = 0;
    const LastingBus lasting(QDBusConnection::SessionBus, [&] { ++changes; });
    EXPECT_FALSE(lasting.connection().isConnected());
    QCoreApplication::processEvents();
    EXPECT_EQ(changes, 0);
}

} // namespace
} // namespace brisklog::test
