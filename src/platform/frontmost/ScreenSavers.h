#pragma once

#include "platform/bus/DBusSignal.h"

#include <QDBusServiceWatcher>
#include <memory>
#include <set>
#include <vector>

namespace brisklog {

/// Tells whether one of the desktop's screen savers is active, which is how desktops lock the screen.
class ScreenSavers {
public:
    explicit ScreenSavers(const QDBusConnection& bus);

    [[nodiscard]] bool isActive() const { return !m_active.empty(); }

private:
    void note(const QString& service, const QDBusMessage& message);

    QDBusServiceWatcher m_watcher;
    std::vector<std::unique_ptr<DBusSignal>> m_signals;
    /// The services whose screen saver is active.
    std::set<QString> m_active;
    /// Pending questions are dropped when it is destroyed.
    QObject m_context;
};

} // namespace brisklog
