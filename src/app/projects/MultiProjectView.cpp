#include "app/projects/MultiProjectView.h"

#include "foundation/Text.h"

#include <algorithm>
#include <unordered_map>
#include <unordered_set>
#include <utility>

namespace brisklog {
namespace {

using ActivityByProject = std::unordered_map<Uuid, TimerActivity>;

ActivityByProject timerActivity(const TimeTrackingStore::ActiveEntries& timers) {
    ActivityByProject activity;
    for (const auto& [id, state] : timers) {
        TimerActivity& ofProject = activity[state.projectId];
        ofProject = std::max(ofProject, state.isPaused ? TimerActivity::allPaused : TimerActivity::running);
    }
    return activity;
}

} // namespace

MultiProjectView::MultiProjectView(const ProjectServices& services, AutoTrackingPlatform autoTracking)
    : autoTrackingManager(std::move(autoTracking)), m_services(services) {}

std::vector<ProjectTab> MultiProjectView::tabs() const {
    const ActivityByProject activity = timerActivity(m_services.store.activeEntries);
    std::vector<ProjectTab> tabs;
    for (const Project& project : m_services.store.projects.get()) {
        const auto timers = activity.find(project.id);
        tabs.push_back({.name = text::onOneLine(project.name),
                        .timers = timers == activity.end() ? TimerActivity::none : timers->second});
    }
    return tabs;
}

int MultiProjectView::projectCount() const { return static_cast<int>(m_services.store.projects->size()); }

bool MultiProjectView::isAutoTrackingSelected() const {
    return m_autoTrackingChosenAt == m_services.store.selectedProjectIndex.revision();
}

int MultiProjectView::selectedTab() const {
    if (isAutoTrackingSelected())
        return autoTrackingTab();
    const int index = m_services.store.selectedProjectIndex;
    return isProject(index) ? index : noTab;
}

void MultiProjectView::selectTab(int tab) {
    if (tab == autoTrackingTab())
        selectAutoTracking();
    else if (isProject(tab) && tab != selectedTab())
        m_services.store.selectedProjectIndex = tab;
}

void MultiProjectView::selectAutoTracking() {
    announce();
    m_autoTrackingChosenAt = m_services.store.selectedProjectIndex.revision();
}

void MultiProjectView::stepTabs(int steps) {
    const int first = projectCount() == 0 ? noTab : 0;
    const int tab = std::clamp(selectedTab() + steps, first, autoTrackingTab());
    if (tab == noTab)
        m_services.store.selectedProjectIndex = m_services.store.selectedProjectIndex.get();
    else
        selectTab(tab);
}

std::shared_ptr<ProjectView> MultiProjectView::projectView() {
    forgetDeletedProjects();
    const int index = m_services.store.selectedProjectIndex;
    const Uuid id =
        isProject(index) ? m_services.store.projects.get()[static_cast<std::size_t>(index)].id : Uuid();
    std::shared_ptr<ProjectView>& view = m_projectViews[id];
    if (!view)
        view = std::make_shared<ProjectView>(m_services, index);
    else if (view->projectIndex != index)
        view->projectIndex = index;
    return view;
}

void MultiProjectView::forgetDeletedProjects() {
    std::unordered_set<Uuid> existing{Uuid()};
    for (const Project& project : m_services.store.projects.get())
        existing.insert(project.id);
    std::erase_if(m_projectViews, [&](const auto& view) { return !existing.contains(view.first); });
}

void MultiProjectView::resetAllData() { m_services.store.resetAllData(); }

} // namespace brisklog
