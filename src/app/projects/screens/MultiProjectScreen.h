#pragma once

#include "app/projects/MultiProjectView.h"
#include "app/projects/screens/ProjectScreenServices.h"
#include "ui/sheets/Screen.h"

#include <optional>

class QStackedWidget;

namespace brisklog {

class ProjectScreen;
class ProjectTabStrip;

/// The time tracking section: the tabs and, below them, the selected project or automatic tracking.
class MultiProjectScreen final : public Screen {
public:
    MultiProjectScreen(MultiProjectView& view, const ProjectScreenServices& services,
                       QWidget* parent = nullptr);

protected:
    void refresh() override;

private:
    /// What the tabs depend on; nothing is read again while it is unchanged.
    struct Revisions {
        std::uint64_t projects;
        std::uint64_t selectedProjectIndex;
        std::uint64_t activeEntries;
        bool isAutoTrackingSelected;

        bool operator==(const Revisions&) const = default;
    };

    [[nodiscard]] Revisions revisions() const;
    void addShortcuts();
    [[nodiscard]] QWidget* selectedScreen();
    void openNewProject();
    void confirmResetAllData();

    const ProjectScreenServices m_services;
    MultiProjectView& m_view;
    std::optional<Revisions> m_shown;
    int m_shownTab = 0;
    ProjectTabStrip* m_strip;
    QStackedWidget* m_tabs;
    ProjectScreen* m_project;
    /// Null until its tab is shown.
    QWidget* m_autoTracking = nullptr;
};

} // namespace brisklog
