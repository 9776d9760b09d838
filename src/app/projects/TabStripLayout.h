#pragma once

#include <optional>
#include <vector>

namespace brisklog {

/// What the row of tabs has to find room for, in logical pixels.
struct TabStripContent {
    /// The widths at which the projects' tabs would show their whole names, in order.
    std::vector<int> projectWidths;
    /// The width of the "Auto-Tracking" tab with its label.
    int autoTrackingWidth = 0;
    /// The tab that must be seen among the projects.
    int currentProject = 0;
    bool isAutoTrackingSelected = false;
    /// The room for all tabs together.
    int availableWidth = 0;
};

/// Where one project's tab stands; narrower than its content where the name is shortened.
struct TabPlacement {
    int projectIndex = 0;
    int x = 0;
    int width = 0;

    bool operator==(const TabPlacement&) const = default;
};

/// A stretch of the strip.
struct TabSpan {
    int x = 0;
    int width = 0;

    bool operator==(const TabSpan&) const = default;
};

/// Where the tabs stand.
struct TabStripLayout {
    /// From left to right; with an overflow button not all projects are among them.
    std::vector<TabPlacement> projects;
    /// The button that lists all projects; absent while all of them are shown.
    std::optional<TabSpan> overflow;
    TabSpan autoTracking;
    bool showsAutoTrackingLabel = true;
};

/// Places the tabs: all of them where they fit, then with "Auto-Tracking" as a symbol alone (unless it is
/// selected), then the current project with as many neighbours as there is room for and an overflow button.
/// "Auto-Tracking" is seen in every case.
[[nodiscard]] TabStripLayout layoutTabStrip(const TabStripContent& content);

} // namespace brisklog
