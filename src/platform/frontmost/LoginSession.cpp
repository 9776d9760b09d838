#include "platform/frontmost/LoginSession.h"

#include "platform/bus/DBusCall.h"

#include <QDBusArgument>
#include <QDBusObjectPath>
#include <QDBusVariant>
#include <utility>

namespace brisklog {
namespace {

using namespace Qt::StringLiterals;

const QString loginService = u"org.freedesktop.login1"_s;
const QString managerPath = u"/org/freedesktop/login1"_s;
const QString managerInterface = u"org.freedesktop.login1.Manager"_s;
const QString sessionInterface = u"org.freedesktop.login1.Session"_s;
const QString propertiesInterface = u"org.freedesktop.DBus.Properties"_s;
const QString lockedProperty = u"LockedHint"_s;

QDBusMessage managerCall(const QString& method, const QVariantList& arguments) {
    auto call = QDBusMessage::createMethodCall(loginService, managerPath, managerInterface, method);
    call.setArguments(arguments);
    call.setAutoStartService(false);
    return call;
}

QVariant unwrappedVariant(const QVariant& value) {
    const bool isWrapped = value.metaType() == QMetaType::fromType<QDBusVariant>();
    return isWrapped ? value.value<QDBusVariant>().variant() : value;
}

} // namespace

LoginSession::LoginSession(QDBusConnection bus) : m_bus(std::move(bus)) {
    m_sleep = std::make_unique<DBusSignal>(
        m_bus,
        DBusSignalAddress{.service = loginService,
                          .path = managerPath,
                          .interface = managerInterface,
                          .name = u"PrepareForSleep"_s},
        [this](const QDBusMessage& signal) { noteSleep(signal.arguments().value(0).toBool()); });
    delaySleep();
    findSession();
}

void LoginSession::delaySleep() {
    const auto call =
        managerCall(u"Inhibit"_s,
                    {u"sleep"_s, u"Brisklog"_s, u"Notiert, welche Anwendung zuletzt vorn war"_s, u"delay"_s});
    callLater(m_bus, call, m_context, [this](const QDBusMessage& answer) {
        if (isReply(answer) && !m_isAsleep)
            m_delay = answer.arguments().value(0).value<QDBusUnixFileDescriptor>();
    });
}

void LoginSession::letSleep() {
    // Later, because what was asked is recorded only once this has returned.
    if (m_isAsleep && m_delay)
        QMetaObject::invokeMethod(
            &m_context, [this] { m_delay.reset(); }, Qt::QueuedConnection);
}

void LoginSession::noteSleep(bool begins) {
    m_isAsleep = begins;
    if (!begins)
        delaySleep();
}

/// "auto" is the user's session on the screen if this process belongs to none, as services do not.
void LoginSession::findSession() {
    const QString own = qEnvironmentVariable("XDG_SESSION_ID", u"auto"_s);
    callLater(m_bus, managerCall(u"GetSession"_s, {own}), m_context, [this](const QDBusMessage& answer) {
        if (isReply(answer))
            follow(answer.arguments().value(0).value<QDBusObjectPath>().path());
    });
}

void LoginSession::follow(const QString& session) {
    m_properties = std::make_unique<DBusSignal>(
        m_bus,
        DBusSignalAddress{.service = loginService,
                          .path = session,
                          .interface = propertiesInterface,
                          .name = u"PropertiesChanged"_s},
        [this](const QDBusMessage& signal) {
            noteLocked(qdbus_cast<QVariantMap>(signal.arguments().value(1)).value(lockedProperty));
        });
    auto question = QDBusMessage::createMethodCall(loginService, session, propertiesInterface, u"Get"_s);
    question.setArguments({sessionInterface, lockedProperty});
    callLater(m_bus, question, m_context,
              [this](const QDBusMessage& answer) { noteLocked(answer.arguments().value(0)); });
}

/// Of another type if the property has not changed, or is not there.
void LoginSession::noteLocked(const QVariant& value) {
    const QVariant locked = unwrappedVariant(value);
    if (locked.metaType() == QMetaType::fromType<bool>())
        m_isLocked = locked.toBool();
}

} // namespace brisklog
