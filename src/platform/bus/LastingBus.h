#pragma once

#include "platform/bus/DBusSignal.h"

#include <QTimer>
#include <functional>
#include <memory>

namespace brisklog {

/// A bus that is found again after it has ended and come back: the toolkit's connection stays lost for ever.
class LastingBus {
public:
    /// `changed` is called when the bus has gone and when it has come back, with another connection each
    /// time; whatever was made for the earlier one is dead. A bus that was never there is not waited for.
    LastingBus(QDBusConnection::BusType type, std::function<void()> changed);

    [[nodiscard]] const QDBusConnection& connection() const { return m_connection; }

private:
    void watch();
    void reconnect();

    QDBusConnection::BusType m_type;
    std::function<void()> m_changed;
    QDBusConnection m_connection;
    std::unique_ptr<DBusSignal> m_lost;
    QTimer m_reconnection;
};

} // namespace brisklog
