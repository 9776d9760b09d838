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

/// The state of a project's timers, as its tab shows it.
enum class TimerActivity {
    none,
    allPaused,
    running, ///< at least one of them
};

/// Instead of a tab's position: the store's selection is no project, and the substitute is shown.
inline constexpr int noTab = -1;

/// One project's tab.
struct ProjectTab {
    std::string name;
    TimerActivity timers = TimerActivity::none;

    bool operator==(const ProjectTab&) const = default;
};

/// The tabs of the time tracking section: one per project, then "Auto-Tracking". The project tabs and the
/// store's selection follow each other; choosing "Auto-Tracking" leaves the store's selection unchanged, and
/// the next write to it switches back to a project. Automatic tracking is owned here and continues whatever
/// tab is shown.
class MultiProjectView final : public ObservableObject {
public:
    /// Automatic tracking resumes at once if it was left switched on.
    MultiProjectView(const ProjectServices& services, AutoTrackingPlatform autoTracking);

    AutoTrackingManager autoTrackingManager;

    /// One per project, in the store's order.
    [[nodiscard]] std::vector<ProjectTab> tabs() const;

    [[nodiscard]] int projectCount() const;

    /// The position of the "Auto-Tracking" tab: after the last project's.
    [[nodiscard]] int autoTrackingTab() const { return projectCount(); }

    /// The tab shown: a project's position, that of "Auto-Tracking", or `noTab`.
    [[nodiscard]] int selectedTab() const;

    [[nodiscard]] bool isAutoTrackingSelected() const;

    /// The project whose tab is shown, or was shown last.
    [[nodiscard]] int lastSelectedIndex() const { return m_services.store.selectedProjectIndex; }

    /// Does nothing for an invalid position.
    void selectTab(int tab);
    void selectAutoTracking();

    /// Moves the selection by a number of tabs, stopping at both ends. Without projects the substitute is
    /// before "Auto-Tracking".
    void stepTabs(int steps);

    /// The view of the selected project. What is typed there stays with its project as long as the project
    /// exists; the screen that shows the view may keep it longer.
    [[nodiscard]] std::shared_ptr<ProjectView> projectView();

    /// Replaces all projects and drops all timers; call once the user has confirmed.
    void resetAllData();

private:
    [[nodiscard]] bool isProject(int tab) const { return tab >= 0 && tab < projectCount(); }

    void forgetDeletedProjects();

    ProjectServices m_services;
    /// The revision of the store's selection when "Auto-Tracking" was chosen.
    std::optional<std::uint64_t> m_autoTrackingChosenAt;
    std::map<Uuid, std::shared_ptr<ProjectView>> m_projectViews;
};

} // namespace brisklog
