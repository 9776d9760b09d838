#include "autotrack/AutoTrackingView.h"

#include "foundation/Text.h"

namespace brisklog {

void AutoTrackingView::setTracking(bool isOn) {
    if (isOn == isTracking())
        return;
    if (isOn)
        m_manager.startTracking();
    else
        m_manager.stopTracking();
}

std::string AutoTrackingView::status() const {
    return isTracking() ? "Aktiv - Erfasst Anwendungsnutzung" : "Inaktiv";
}

std::optional<std::string> AutoTrackingView::current() const {
    const std::optional<AppUsageSession>& session = m_manager.currentSession;
    if (!isTracking() || !session)
        return std::nullopt;
    return "Aktuell: " + text::onOneLine(session->appName);
}

std::optional<std::string> AutoTrackingView::unavailability() const {
    if (m_frontmost.availability() != FrontmostApplication::Availability::unavailable)
        return std::nullopt;
    return "Dieser Desktop teilt nicht mit, welche Anwendung vorn ist.";
}

void AutoTrackingView::clearData() { m_manager.clearAllData(); }

} // namespace brisklog
