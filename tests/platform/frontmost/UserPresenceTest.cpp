#include "platform/frontmost/UserPresence.h"

#include "FakeDesktopService.h"
#include "platform/DesktopFixture.h"

#include <QCoreApplication>
#include <QDBusObjectPath>
#include <QDBusUnixFileDescriptor>
#include <QDBusVariant>
#include <algorithm>
#include <fcntl.h>
#include <gtest/gtest.h>
#include <unistd.h>
#include <utility>

namespace brisklog::test {
namespace {

using namespace Qt::StringLiterals;

/// Screen savers, and a login manager that stands in for the machine's, on one private bus.
class UserPresenceTest : public DesktopWithBus {
protected:
    void SetUp() override {
        DesktopWithBus::SetUp();
        qputenv("DBUS_SYSTEM_BUS_ADDRESS", qgetenv("DBUS_SESSION_BUS_ADDRESS"));
        qunsetenv("XDG_SESSION_ID");
        ASSERT_EQ(::pipe2(m_pipe.data(), O_CLOEXEC | O_NONBLOCK), 0);
    }

    void TearDown() override {
        presence.endWatching();
        m_login.reset();
        qunsetenv("DBUS_SYSTEM_BUS_ADDRESS");
        for (const int end : m_pipe)
            ::close(end);
        DesktopWithBus::TearDown();
    }

    void startLogin() {
        m_login.emplace(loginName, [this](const QDBusMessage& call) { return answer(call); });
    }

    void setLocked(bool isLocked) {
        m_login->emitSignal(sessionPath, u"org.freedesktop.DBus.Properties"_s, u"PropertiesChanged"_s,
                            {u"org.freedesktop.login1.Session"_s,
                             QVariantMap{{u"LockedHint"_s, isLocked}, {u"IdleHint"_s, true}}, QStringList()});
    }

    void prepareForSleep(bool begins) {
        m_login->emitSignal(u"/org/freedesktop/login1"_s, u"org.freedesktop.login1.Manager"_s,
                            u"PrepareForSleep"_s, {begins});
    }

    /// Whether somebody holds the other end of the pipe that the machine waits for.
    [[nodiscard]] bool isSleepDelayed() {
        ::close(std::exchange(m_pipe[1], -1));
        char byte = 0;
        return ::read(m_pipe[0], &byte, 1) < 0;
    }

    [[nodiscard]] bool becomesAway(bool expected) {
        return waitUntil([this, expected] { return presence.isAway() == expected; });
    }

    [[nodiscard]] bool isAsked(const QString& method) {
        return waitUntil([&] { return std::ranges::count(m_login->calls, method) > 0; });
    }

    FakeDesktopService::Answers savers(bool isActive) {
        return [isActive](const QDBusMessage&) { return QVariantList{isActive}; };
    }

    DesktopUserPresence presence;
    bool isLockedFromTheBeginning = false;

private:
    std::optional<QVariantList> answer(const QDBusMessage& call) {
        if (call.member() == u"Inhibit"_s && m_pipe[1] >= 0)
            return QVariantList{QVariant::fromValue(QDBusUnixFileDescriptor(m_pipe[1]))};
        if (call.member() == u"GetSession"_s && call.arguments().value(0) == u"auto"_s)
            return QVariantList{QVariant::fromValue(QDBusObjectPath(sessionPath))};
        if (call.member() == u"Get"_s && call.arguments().value(1) == u"LockedHint"_s)
            return QVariantList{QVariant::fromValue(QDBusVariant(isLockedFromTheBeginning))};
        return std::nullopt;
    }

    const QString loginName = u"org.freedesktop.login1"_s;
    const QString sessionPath = u"/org/freedesktop/login1/session/_31"_s;
    std::array<int, 2> m_pipe{};
    std::optional<FakeDesktopService> m_login;
};

TEST_F(UserPresenceTest, withNobodyToTellTheUserIsThere) {
    presence.beginWatching();
    QCoreApplication::processEvents();
    EXPECT_FALSE(presence.isAway());
    presence.confirm();
}

TEST_F(UserPresenceTest, everyDesktopsScreenSaverIsListenedTo) {
    presence.beginWatching();
    for (const auto& name :
         {u"org.freedesktop.ScreenSaver"_s, u"org.gnome.ScreenSaver"_s, u"org.xfce.ScreenSaver"_s,
          u"org.mate.ScreenSaver"_s, u"org.cinnamon.ScreenSaver"_s}) {
        const FakeDesktopService saver(name, savers(false));
        const QString path = u'/' + QString(name).replace(u'.', u'/');
        saver.emitSignal(path, name, u"ActiveChanged"_s, {true});
        EXPECT_TRUE(becomesAway(true)) << name.toStdString();
        saver.emitSignal(path, name, u"ActiveChanged"_s, {false});
        EXPECT_TRUE(becomesAway(false)) << name.toStdString();
    }
}

TEST_F(UserPresenceTest, aScreenThatIsLockedAlreadyIsNoticed) {
    const FakeDesktopService saver(u"org.gnome.ScreenSaver"_s, savers(true));
    presence.beginWatching();
    EXPECT_TRUE(becomesAway(true));
    presence.endWatching();
    EXPECT_FALSE(presence.isAway());
}

TEST_F(UserPresenceTest, aScreenSaverThatEndsKeepsNothingLocked) {
    std::optional<FakeDesktopService> saver(std::in_place, u"org.gnome.ScreenSaver"_s, savers(true));
    presence.beginWatching();
    EXPECT_TRUE(becomesAway(true));
    saver.reset();
    EXPECT_TRUE(becomesAway(false));
}

TEST_F(UserPresenceTest, onABusThatEndsAndComesBackTheyAreAskedAgain) {
    // Each bus has an identity of its own, which the addresses in user sessions do not name.
    const QByteArray address = qgetenv("DBUS_SESSION_BUS_ADDRESS").split(',').first();
    qputenv("DBUS_SESSION_BUS_ADDRESS", address);
    qputenv("DBUS_SYSTEM_BUS_ADDRESS", address);
    std::optional<FakeDesktopService> saver(std::in_place, u"org.gnome.ScreenSaver"_s, savers(true));
    presence.beginWatching();
    EXPECT_TRUE(becomesAway(true));
    saver.reset();
    killBus();
    EXPECT_TRUE(becomesAway(false));
    restartBus();
    saver.emplace(u"org.gnome.ScreenSaver"_s, savers(true));
    EXPECT_TRUE(becomesAway(true));
}

TEST_F(UserPresenceTest, theLoginManagersLockIsNoticed) {
    startLogin();
    presence.beginWatching();
    ASSERT_TRUE(isAsked(u"Get"_s));
    setLocked(true);
    EXPECT_TRUE(becomesAway(true));
    setLocked(false);
    EXPECT_TRUE(becomesAway(false));
}

TEST_F(UserPresenceTest, aSessionThatIsLockedAlreadyIsNoticed) {
    isLockedFromTheBeginning = true;
    startLogin();
    presence.beginWatching();
    EXPECT_TRUE(becomesAway(true));
}

TEST_F(UserPresenceTest, theMachineSleepsOnlyOnceItHasBeenConfirmed) {
    startLogin();
    presence.beginWatching();
    ASSERT_TRUE(isAsked(u"Get"_s));
    prepareForSleep(true);
    EXPECT_TRUE(becomesAway(true));
    EXPECT_TRUE(isSleepDelayed());
    presence.confirm();
    EXPECT_TRUE(waitUntil([this] { return !isSleepDelayed(); }));
    prepareForSleep(false);
    EXPECT_TRUE(becomesAway(false));
}

} // namespace
} // namespace brisklog::test
