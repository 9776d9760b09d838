#include "FakeKWin.h"

#include <QFile>
#include <QRegularExpression>

namespace brisklog::test {
namespace {

using namespace Qt::StringLiterals;

const QString connectionName = u"fake window manager"_s;

} // namespace

FakeKWin::FakeKWin(const QString& address, Behaviour behaviour)
    : m_behaviour(std::move(behaviour)), m_bus(QDBusConnection::connectToBus(address, connectionName)) {
    m_bus.registerVirtualObject(u"/"_s, this, QDBusConnection::SubPath);
    m_bus.registerService(u"org.kde.KWin"_s);
}

FakeKWin::~FakeKWin() {
    m_bus.unregisterObject(u"/"_s, QDBusConnection::UnregisterTree);
    QDBusConnection::disconnectFromBus(connectionName);
}

QString FakeKWin::introspect(const QString& /*path*/) const { return {}; }

bool FakeKWin::handleMessage(const QDBusMessage& message, const QDBusConnection& /*connection*/) {
    m_bus.send(answerTo(message));
    return true;
}

QDBusMessage FakeKWin::answerTo(const QDBusMessage& message) {
    m_calls.push_back(message.member());
    if (m_behaviour.refusals-- > 0)
        return message.createErrorReply(QDBusError::UnknownObject, u"not yet"_s);
    if (message.path() == u"/Scripting"_s && message.member() == u"isScriptLoaded"_s)
        return message.createReply(false);
    if (message.path() == u"/Scripting"_s && message.member() == u"unloadScript"_s) {
        m_listener.clear();
        return message.createReply(false);
    }
    if (message.path() == u"/Scripting"_s && message.member() == u"loadScript"_s) {
        m_script = message.arguments().value(0).toString();
        return message.createReply(7);
    }
    if (message.path() != m_behaviour.scriptFolder + u'7' || message.member() != u"run"_s)
        return message.createErrorReply(QDBusError::UnknownObject, u"no such object"_s);
    readScript(m_script);
    if (m_behaviour.scriptSpeaks)
        tell({});
    return message.createReply();
}

/// The script itself says whom it is going to call.
void FakeKWin::readScript(const QString& path) {
    QFile file(path);
    if (!file.open(QFile::ReadOnly))
        return;
    const QRegularExpression call(uR"re(\["([^"]*)", "([^"]*)", "([^"]*)", "([^"]*)"\])re"_s);
    m_listener = call.match(QString::fromUtf8(file.readAll())).capturedTexts().mid(1);
}

QDBusPendingCall FakeKWin::tellFrom(const QDBusConnection& bus, const QVariantList& arguments) const {
    auto message = QDBusMessage::createMethodCall(m_listener.value(0), m_listener.value(1),
                                                  m_listener.value(2), m_listener.value(3));
    message.setArguments(arguments);
    return bus.asyncCall(message);
}

} // namespace brisklog::test
