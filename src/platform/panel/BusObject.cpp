#include "platform/panel/BusObject.h"

#include <QDBusMessage>
#include <QDBusVariant>
#include <utility>

namespace brisklog {

using namespace Qt::StringLiterals;

namespace {

const QString propertiesInterface = u"org.freedesktop.DBus.Properties"_s;

} // namespace

BusObject::BusObject(QDBusConnection bus, Address address)
    : m_bus(std::move(bus)), m_address(std::move(address)) {
    m_bus.registerVirtualObject(m_address.path, this);
}

BusObject::~BusObject() { m_bus.unregisterObject(m_address.path); }

QString BusObject::introspect(const QString& /*path*/) const {
    return u"<interface name=\"%1\">%2</interface>"_s.arg(m_address.interface, m_address.members);
}

bool BusObject::handleMessage(const QDBusMessage& message, const QDBusConnection& connection) {
    // A call need not name the interface.
    const bool isOurs = message.interface() == m_address.interface || message.interface().isEmpty();
    if (!isOurs && message.interface() != propertiesInterface)
        return false;
    const auto values = isOurs ? handleCall(message.member(), message.arguments())
                               : readProperties(message.member(), message.arguments());
    // Some panels try one method and, only after this very error, another one.
    connection.send(values ? message.createReply(*values)
                           : message.createErrorReply(QDBusError::UnknownMethod, u"no such member"_s));
    return true;
}

std::optional<QVariantList> BusObject::readProperties(const QString& method,
                                                      const QVariantList& arguments) const {
    const QVariantMap all = properties();
    if (method == u"GetAll"_s)
        return QVariantList{all};
    const auto found = all.find(arguments.value(1).toString());
    if (method != u"Get"_s || found == all.end())
        return std::nullopt;
    return QVariantList{QVariant::fromValue(QDBusVariant(*found))};
}

void BusObject::emitSignal(const QString& name) {
    m_bus.send(QDBusMessage::createSignal(m_address.path, m_address.interface, name));
}

} // namespace brisklog
