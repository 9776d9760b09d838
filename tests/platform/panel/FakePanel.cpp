#include "FakePanel.h"

#include "platform/DesktopFixture.h"

#include <QDBusPendingCall>
#include <QDBusVariant>

namespace brisklog::test {
namespace {

using namespace Qt::StringLiterals;

const QString panelConnection = u"fake panel"_s;
const QString itemInterface = u"org.kde.StatusNotifierItem"_s;
const QString itemPath = u"/StatusNotifierItem"_s;

} // namespace

FakePanel::FakePanel(const QString& address)
    : m_bus(QDBusConnection::connectToBus(address, panelConnection)) {
    m_bus.registerVirtualObject(u"/StatusNotifierWatcher"_s, this);
    m_bus.registerService(u"org.kde.StatusNotifierWatcher"_s);
}

FakePanel::~FakePanel() { QDBusConnection::disconnectFromBus(panelConnection); }

QString FakePanel::introspect(const QString& /*path*/) const { return {}; }

bool FakePanel::handleMessage(const QDBusMessage& message, const QDBusConnection& /*connection*/) {
    if (message.member() == u"RegisterStatusNotifierItem"_s)
        items.append(message.arguments().value(0).toString());
    m_bus.send(message.createReply(QVariantList{QVariant::fromValue(QDBusVariant(true))}));
    return true;
}

QDBusMessage FakePanel::ask(const QString& path, const QString& interface, const QString& method,
                            const QVariantList& arguments) const {
    auto question = QDBusMessage::createMethodCall(items.value(items.size() - 1), path, interface, method);
    question.setArguments(arguments);
    const QDBusPendingCall answer = m_bus.asyncCall(question);
    EXPECT_TRUE(waitUntil([&answer] { return answer.isFinished(); })) << method.toStdString();
    return answer.reply();
}

QVariant FakePanel::property(const QString& name) const {
    const auto answer = ask(itemPath, u"org.freedesktop.DBus.Properties"_s, u"Get"_s, {itemInterface, name});
    return answer.type() == QDBusMessage::ErrorMessage
               ? QVariant()
               : answer.arguments().value(0).value<QDBusVariant>().variant();
}

QString FakePanel::call(const QString& method, const QVariantList& arguments) const {
    return ask(itemPath, itemInterface, method, arguments).errorName();
}

QVariantList FakePanel::askMenu(const QString& method, const QVariantList& arguments) const {
    const auto path = property(u"Menu"_s).value<QDBusObjectPath>().path();
    const auto answer = ask(path, u"com.canonical.dbusmenu"_s, method, arguments);
    EXPECT_EQ(answer.type(), QDBusMessage::ReplyMessage) << answer.errorMessage().toStdString();
    return answer.arguments();
}

} // namespace brisklog::test
