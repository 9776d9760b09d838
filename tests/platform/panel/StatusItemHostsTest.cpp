#include "platform/panel/StatusItemHosts.h"

#include "platform/DesktopFixture.h"
#include "support/FakeWindowServer.h"

#include <QCoreApplication>
#include <vector>

namespace brisklog::test {
namespace {

using Found = std::vector<std::pair<StatusItemHostKind, HostArrival>>;

/// A desktop whose panels, if any, are XEmbed trays.
class StatusItemHostsTest : public Desktop {
protected:
    void look() {
        hosts.emplace(windowServer, [this](StatusItemHostKind kind, HostArrival arrival) {
            found.emplace_back(kind, arrival);
        });
        EXPECT_EQ(found, Found{}) << "hosts are reported later, never during construction";
        QCoreApplication::processEvents();
    }

    FakeWindowServer windowServer;
    Found found;
    std::optional<StatusItemHosts> hosts;
};

TEST_F(StatusItemHostsTest, aTrayThatIsThereIsFound) {
    windowServer.addTray();
    look();
    EXPECT_EQ(found, (Found{{StatusItemHostKind::xembedTray, HostArrival::alreadyThere}}));
    EXPECT_TRUE(hosts->hasHost());
}

TEST_F(StatusItemHostsTest, aTrayThatComesLaterIsFoundThen) {
    look();
    EXPECT_EQ(found, Found{});
    EXPECT_FALSE(hosts->hasHost());
    windowServer.addTray();
    EXPECT_EQ(found, (Found{{StatusItemHostKind::xembedTray, HostArrival::justArrived}}));
    EXPECT_TRUE(hosts->hasHost());
}

TEST_F(StatusItemHostsTest, aTrayThatWentAndCameAgainIsFoundOnce) {
    windowServer.addTray();
    look();
    windowServer.removeTray();
    EXPECT_FALSE(hosts->hasHost());
    windowServer.addTray();
    EXPECT_EQ(found.size(), 1U);
    EXPECT_TRUE(hosts->hasHost());
}

TEST_F(StatusItemHostsTest, whoHasGoneHearsOfNoTray) {
    look();
    hosts.reset();
    windowServer.addTray();
    EXPECT_EQ(found, Found{});
}

} // namespace
} // namespace brisklog::test
