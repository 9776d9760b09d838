#pragma once

#include "platform/Appearance.h"

#include <QDBusConnection>
#include <QObject>

namespace brisklog {

/// The desktop's preference as its settings portal reports it. Asking never blocks; no answer means light.
class PortalAppearance final : public SystemAppearance {
public:
    explicit PortalAppearance(QDBusConnection bus = QDBusConnection::sessionBus());

    void ask(Answer answered) override;

private:
    QDBusConnection m_bus;
    /// Pending questions are dropped when it is destroyed.
    QObject m_context;
};

} // namespace brisklog
