#pragma once

#include <optional>
#include <vector>

namespace brisklog {

/// What the row of tabs must fit in, in logical pixels.
struct TabStripContent {
    /// The widths at which the projects' tabs show their full names, in order.
    std::vector<int> projectWidths;
    /// The width of the "Auto-Tracking" tab with its label.
    int autoTrackingWidth = 0;
    /// The project whose tab must be visible.
    int currentProject = 0;
    bool isAutoTrackingSelected = false;
    /// The width available for all tabs together.
    int availableWidth = 0;
};

/// The place of one project's tab; narrower than its content where the name is shortened.
struct TabPlacement {
    int projectIndex = 0;
    int x = 0;
    int width = 0;

    bool operator==(const TabPlacement&) const = default;
};

/// A horizontal section of the strip.
struct TabSpan {
    int x = 0;
    int width = 0;

    bool operator==(const TabSpan&) const = default;
};

/// The places of the tabs.
struct TabStripLayout {
    /// From left to right; not all projects if there is an overflow button.
    std::vector<TabPlacement> projects;
    /// The button that lists all projects; absent while all of them are shown.
    std::optional<TabSpan> overflow;
    TabSpan autoTracking;
    bool showsAutoTrackingLabel = true;
};

/// Places the tabs: all of them if they fit, if necessary with "Auto-Tracking" as a symbol only (unless it is
/// selected); else the current project with as many neighbours as fit, and an overflow button.
/// "Auto-Tracking" is always visible.
[[nodiscard]] TabStripLayout layoutTabStrip(const TabStripContent& content);

} // namespace brisklog
