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
    switch (m_frontmost.availability()) {
    case FrontmostApplication::Availability::unavailable:
        return "Dieser Desktop teilt nicht mit, welche Anwendung vorn ist.";
    case FrontmostApplication::Availability::switchedOff:
        return "Damit Brisklog sieht, welche Anwendung vorn ist, schalte bitte in der App „Erweiterungen“ "
               "die Erweiterung „Brisklog“ ein.";
    case FrontmostApplication::Availability::notYetKnown:
    case FrontmostApplication::Availability::available:
        break;
    }
    return std::nullopt;
}

void AutoTrackingView::clearData() { m_manager.clearAllData(); }

} // namespace brisklog
