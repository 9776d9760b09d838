#pragma once

#include "platform/frontmost/ApplicationCatalogue.h"
#include "platform/frontmost/KWinScript.h"

#include <QDBusServiceWatcher>
#include <memory>

namespace brisklog {

/// The frontmost application under KDE's Wayland desktop, reported by a script inside its window manager
/// KWin. The script is loaded only while watching.
class KWinFrontmostApplication final : public FrontmostApplication {
public:
    explicit KWinFrontmostApplication(QDBusConnection bus = QDBusConnection::sessionBus());
    ~KWinFrontmostApplication() override;

    [[nodiscard]] Availability availability() const override { return m_availability; }

    void beginWatching() override;
    void endWatching() override;
    [[nodiscard]] std::optional<DesktopApplication> current() override;
    [[nodiscard]] std::optional<std::string> iconPng(const DesktopApplication& application) override;

private:
    void askForOwner();
    void setOwner(const QString& owner);
    void askForScripting(int attempts);
    void startScript();
    void setAvailability(Availability availability);

    QDBusConnection m_bus;
    QObject m_context;
    QDBusServiceWatcher m_serviceWatcher;
    Availability m_availability = Availability::notYetKnown;
    /// KWin's unique name on the bus; empty while KWin is not running.
    QString m_owner;
    bool m_isWatching = false;
    std::unique_ptr<KWinScript> m_script;
    /// The window last reported by the script; absent when no window is active.
    std::optional<WindowIdentity> m_window;
    DescribedWindow m_described;
};

} // namespace brisklog
