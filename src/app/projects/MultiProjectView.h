#pragma once

#include "app/projects/ProjectView.h"
#include "autotrack/AutoTrackingManager.h"

#include <cstdint>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace brisklog {

/// What a project's timers are doing, as its tab shows it.
enum class TimerActivity {
    none,
    allPaused,
    running, ///< at least one of them
};

/// One project's tab.
struct ProjectTab {
    std::string name;
    TimerActivity timers = TimerActivity::none;

    bool operator==(const ProjectTab&) const = default;
};

/// The tabs of the time tracking section: one per project, and "Auto-Tracking" after the last. The project
/// tabs follow the store's selection, in both directions; "Auto-Tracking" leaves it as it is, and gives way
/// to the next write of it. Automatic tracking itself is owned here and goes on whatever is shown.
class MultiProjectView final : public ObservableObject {
public:
    /// Automatic tracking resumes at once when it was left switched on.
    MultiProjectView(const ProjectServices& services, AutoTrackingPlatform autoTracking);

    AutoTrackingManager autoTrackingManager;

    /// One per project, in the store's order.
    [[nodiscard]] std::vector<ProjectTab> tabs() const;

    [[nodiscard]] int projectCount() const;

    /// The position of the tab after the last project's.
    [[nodiscard]] int autoTrackingTab() const { return projectCount(); }

    /// The tab shown: a project's position, or that of "Auto-Tracking". A selection that points nowhere is
    /// given as it stands.
    [[nodiscard]] int selectedTab() const;

    [[nodiscard]] bool isAutoTrackingSelected() const;

    /// The project whose tab is, or was last, shown.
    [[nodiscard]] int lastSelectedIndex() const { return m_services.store.selectedProjectIndex; }

    /// A position that is no tab does nothing.
    void selectTab(int tab);
    void selectAutoTracking();

    /// Moves the selection by a number of tabs, stopping at both ends.
    void stepTabs(int steps);

    /// The screen of the selected project. What is typed there stays with its project for as long as that
    /// exists; who shows it may keep it longer.
    [[nodiscard]] std::shared_ptr<ProjectView> projectView();

    /// Replaces all projects and drops all timers; to be called once the user has confirmed it.
    void resetAllData();

private:
    void forgetDeletedProjects();

    ProjectServices m_services;
    /// How often the store's selection had been written when "Auto-Tracking" was chosen.
    std::optional<std::uint64_t> m_autoTrackingChosenAt;
    std::map<Uuid, std::shared_ptr<ProjectView>> m_projectViews;
};

} // namespace brisklog
