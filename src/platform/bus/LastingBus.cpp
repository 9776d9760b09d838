#include "platform/bus/LastingBus.h"

#include <chrono>
#include <utility>

namespace brisklog {
namespace {

using namespace Qt::StringLiterals;

constexpr std::chrono::seconds betweenAttempts(2);

QDBusConnection sharedConnection(QDBusConnection::BusType type) {
    return type == QDBusConnection::SystemBus ? QDBusConnection::systemBus() : QDBusConnection::sessionBus();
}

/// The toolkit knows connections by name; a lost one keeps its own.
QDBusConnection newConnection(QDBusConnection::BusType type) {
    static int count = 0;
    return QDBusConnection::connectToBus(type, u"brisklog-%1"_s.arg(++count));
}

} // namespace

LastingBus::LastingBus(QDBusConnection::BusType type, std::function<void()> changed)
    : m_type(type), m_changed(std::move(changed)), m_connection(sharedConnection(type)) {
    m_reconnection.setInterval(betweenAttempts);
    QObject::connect(&m_reconnection, &QTimer::timeout, &m_reconnection, [this] { reconnect(); });
    watch();
}

void LastingBus::watch() {
    m_lost = std::make_unique<DBusSignal>(m_connection,
                                          DBusSignalAddress{.service = {},
                                                            .path = u"/org/freedesktop/DBus/Local"_s,
                                                            .interface = u"org.freedesktop.DBus.Local"_s,
                                                            .name = u"Disconnected"_s},
                                          [this](const QDBusMessage&) {
                                              m_reconnection.start();
                                              m_changed();
                                          });
}

void LastingBus::reconnect() {
    const QDBusConnection connection = newConnection(m_type);
    if (!connection.isConnected()) {
        QDBusConnection::disconnectFromBus(connection.name());
        return;
    }
    m_reconnection.stop();
    m_connection = connection;
    watch();
    m_changed();
}

} // namespace brisklog
