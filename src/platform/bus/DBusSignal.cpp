#include "platform/bus/DBusSignal.h"

#include <utility>

namespace brisklog {

DBusSignal::DBusSignal(QDBusConnection bus, const DBusSignalAddress& address,
                       std::function<void(const QDBusMessage&)> received)
    : m_received(std::move(received)) {
    // On a bus that has gone, the toolkit would ask who owns the service's name, and end the program.
    if (bus.isConnected())
        bus.connect(address.service, address.path, address.interface, address.name, this,
                    SLOT(receive(QDBusMessage)));
}

void DBusSignal::receive(const QDBusMessage& message) { m_received(message); }

} // namespace brisklog
