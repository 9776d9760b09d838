#include "platform/bus/DBusCall.h"

#include "platform/DesktopFixture.h"

#include <QObject>
#include <memory>
#include <optional>

namespace brisklog::test {
namespace {

using namespace Qt::StringLiterals;

QDBusMessage callOfTheBus(const QString& method) {
    return QDBusMessage::createMethodCall(u"org.freedesktop.DBus"_s, u"/org/freedesktop/DBus"_s,
                                          u"org.freedesktop.DBus"_s, method);
}

/// Whether the bus answers the call with a reply rather than an error.
std::optional<bool> outcome(const QDBusConnection& bus, const QString& method) {
    QObject asker;
    std::optional<bool> replied;
    callLater(bus, callOfTheBus(method), asker,
              [&replied](const QDBusMessage& answer) { replied = isReply(answer); });
    EXPECT_FALSE(replied) << "the answer comes asynchronously";
    EXPECT_TRUE(waitUntil([&replied] { return replied.has_value(); }));
    return replied;
}

using DBusCall = DesktopWithBus;
using DBusCallWithoutBus = Desktop;

TEST_F(DBusCall, isAnsweredWithTheReply) { EXPECT_EQ(outcome(bus(), u"GetId"_s), true); }

TEST_F(DBusCall, isAnsweredWithTheError) { EXPECT_EQ(outcome(bus(), u"NoSuchMethod"_s), false); }

TEST_F(DBusCall, isNotAnsweredOnceTheAskerIsGone) {
    bool isAnswered = false;
    auto asker = std::make_unique<QObject>();
    callLater(bus(), callOfTheBus(u"GetId"_s), *asker,
              [&isAnswered](const QDBusMessage&) { isAnswered = true; });
    asker.reset();
    EXPECT_EQ(outcome(bus(), u"GetId"_s), true) << "asked later, so answered later";
    EXPECT_FALSE(isAnswered);
}

TEST_F(DBusCallWithoutBus, isAnsweredWithAnError) {
    EXPECT_EQ(outcome(QDBusConnection::sessionBus(), u"GetId"_s), false);
}

} // namespace
} // namespace brisklog::test
