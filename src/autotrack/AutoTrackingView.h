#pragma once

#include "autotrack/AutoTrackingManager.h"

#include <optional>
#include <string>

namespace brisklog {

/// The panel that switches automatic tracking on and off and shows what is being recorded.
class AutoTrackingView final : public ObservableObject {
public:
    AutoTrackingView(AutoTrackingManager& manager, FrontmostApplication& frontmost)
        : m_manager(manager), m_frontmost(frontmost) {}

    /// Shows the confirmation before all recorded days are deleted.
    Published<bool> showingClearDataAlert{*this, false};

    [[nodiscard]] AutoTrackingManager& autoTrackingManager() const { return m_manager; }

    [[nodiscard]] bool isTracking() const { return m_manager.isTracking; }

    /// What the switch does; does nothing if the state is unchanged.
    void setTracking(bool isOn);

    [[nodiscard]] std::string status() const;

    /// "Aktuell: Firefox"; absent while nothing is being recorded.
    [[nodiscard]] std::optional<std::string> current() const;

    /// Why nothing will be recorded, and what to do about it; absent if the desktop reports the frontmost
    /// application or may still do so.
    [[nodiscard]] std::optional<std::string> unavailability() const;

    /// Deletes all recorded days; to be called once the user has confirmed it. Tracking and the open session
    /// continue.
    void clearData();

private:
    AutoTrackingManager& m_manager;
    FrontmostApplication& m_frontmost;
};

} // namespace brisklog
