#pragma once

#include "platform/frontmost/FrontmostWindow.h"
#include "platform/frontmost/KWinScript.h"

#include <QDBusServiceWatcher>
#include <memory>

namespace brisklog {

/// The window in front under KDE's Wayland desktop, reported by a script inside its window manager
/// KWin. The script is loaded only while watching.
class KWinFrontmostWindow final : public FrontmostWindow {
public:
    explicit KWinFrontmostWindow(QDBusConnection bus = QDBusConnection::sessionBus());
    ~KWinFrontmostWindow() override;

    [[nodiscard]] Availability availability() const override { return m_availability; }

    void beginWatching() override;
    void endWatching() override;

    [[nodiscard]] const InFront& inFront() override { return m_seen; }

    [[nodiscard]] InFront behind(const OwnWindows& /*own*/) override { return m_behind; }

private:
    void askForOwner();
    void setOwner(const QString& owner);
    void askForScripting(int attempts);
    void startScript();
    void endScript();
    void note(const KWinScript::Report& report);
    void setAvailability(Availability availability);

    QDBusConnection m_bus;
    QObject m_context;
    QDBusServiceWatcher m_serviceWatcher;
    Availability m_availability = Availability::notYetKnown;
    /// KWin's unique name on the bus; empty while KWin is not running.
    QString m_owner;
    bool m_isWatching = false;
    std::unique_ptr<KWinScript> m_script;
    /// What the script last reported, and what it found behind that when it started; unknown without a
    /// script.
    InFront m_seen;
    InFront m_behind;
};

} // namespace brisklog
