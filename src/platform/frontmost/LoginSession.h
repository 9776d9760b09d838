#pragma once

#include "platform/bus/DBusSignal.h"

#include <QDBusUnixFileDescriptor>
#include <memory>
#include <optional>

namespace brisklog {

/// What the login manager tells about this session and the machine: whether the screen is locked, and when
/// the machine is going to sleep. It makes the machine wait a moment, so that what was in front until then is
/// recorded before it sleeps.
class LoginSession {
public:
    explicit LoginSession(QDBusConnection bus);

    [[nodiscard]] bool isLockedOrAsleep() const { return m_isLocked || m_isAsleep; }

    /// The machine need not wait any longer.
    void letSleep();

private:
    void delaySleep();
    void findSession();
    void follow(const QString& session);
    void noteSleep(bool begins);
    void noteLocked(const QVariant& value);

    QDBusConnection m_bus;
    std::unique_ptr<DBusSignal> m_sleep;
    std::unique_ptr<DBusSignal> m_properties;
    /// The machine waits until this is closed.
    std::optional<QDBusUnixFileDescriptor> m_delay;
    bool m_isLocked = false;
    bool m_isAsleep = false;
    QObject m_context;
};

} // namespace brisklog
