#pragma once

#include "platform/bus/DBusSignal.h"
#include "platform/frontmost/FrontmostWindow.h"

#include <QDBusServiceWatcher>

namespace brisklog {

/// The window in front under GNOME's Wayland desktop, reported by our extension of its shell. It is off until
/// the user switches it on, and reports only while watching.
class GnomeFrontmostWindow final : public FrontmostWindow {
public:
    explicit GnomeFrontmostWindow(QDBusConnection bus = QDBusConnection::sessionBus());
    ~GnomeFrontmostWindow() override;

    [[nodiscard]] Availability availability() const override { return m_availability; }

    void beginWatching() override;
    void endWatching() override;

    [[nodiscard]] const InFront& inFront() override { return m_seen; }

    [[nodiscard]] InFront behind(const OwnWindows& /*own*/) override { return m_behind; }

private:
    void askForExtension();
    void noteExtension(const QVariant& information);
    void follow(int attempts);
    void leave();
    void note(const QDBusMessage& report);
    void forget();
    void setAvailability(Availability availability);

    QDBusConnection m_bus;
    QObject m_context;
    QDBusServiceWatcher m_serviceWatcher;
    DBusSignal m_extensionChanged;
    DBusSignal m_changed;
    Availability m_availability = Availability::notYetKnown;
    bool m_isWatching = false;
    /// What the extension last reported, and what it found behind that; unknown while it reports nothing.
    InFront m_seen;
    InFront m_behind;
};

} // namespace brisklog
