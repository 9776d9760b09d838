#pragma once

#include "platform/Appearance.h"

#include <QDBusConnection>
#include <QObject>

namespace brisklog {

/// The desktop's preference as its settings portal tells it. Asking never waits; silence is light.
class PortalAppearance final : public SystemAppearance {
public:
    explicit PortalAppearance(QDBusConnection bus = QDBusConnection::sessionBus());

    void ask(Answer answered) override;

private:
    QDBusConnection m_bus;
    /// Questions end with it.
    QObject m_context;
};

} // namespace brisklog
