#include "app/projects/MultiProjectView.h"
#include "app/projects/ProjectSheetViews.h"
#include "app/projects/ProjectWorkbench.h"

#include <gtest/gtest.h>

namespace brisklog::test {
namespace {

class ProjectTabs : public ::testing::Test {
protected:
    /// "Standardprojekt", "Web" and "Druck"; the first is selected.
    ProjectTabs() {
        bench.store.addProject("Web", 95);
        bench.store.addProject("Druck", std::nullopt);
        bench.store.selectedProjectIndex = 0;
        bench.files.written.clear();
    }

    ProjectWorkbench bench;
    MultiProjectView view{bench.services(), bench.tracking()};
};

TEST_F(ProjectTabs, areOnePerProjectAndAutoTrackingAfterTheLast) {
    const std::vector<ProjectTab> expected{{"Standardprojekt"}, {"Web"}, {"Druck"}};
    EXPECT_EQ(view.tabs(), expected);
    EXPECT_EQ(view.autoTrackingTab(), 3);
    EXPECT_EQ(view.selectedTab(), 0);
}

TEST_F(ProjectTabs, choosingATabChoosesTheStoresProject) {
    view.selectTab(2);
    EXPECT_EQ(bench.store.selectedProjectIndex, 2);
    EXPECT_EQ(view.selectedTab(), 2);
    EXPECT_EQ(view.projectView()->project().name, "Druck");
}

TEST_F(ProjectTabs, followTheStoresSelection) {
    bench.store.selectedProjectIndex = 1;
    EXPECT_EQ(view.selectedTab(), 1);
    EXPECT_EQ(view.projectView()->project().name, "Web");
}

TEST_F(ProjectTabs, positionThatIsNoTabIsIgnored) {
    view.selectTab(-1);
    view.selectTab(4);
    EXPECT_EQ(view.selectedTab(), 0);
}

TEST_F(ProjectTabs, choosingTheShownTabWritesNothing) {
    const auto revision = bench.store.selectedProjectIndex.revision();
    view.selectTab(0);
    EXPECT_EQ(bench.store.selectedProjectIndex.revision(), revision);
}

TEST_F(ProjectTabs, autoTrackingLeavesTheSelectedProjectAsItIs) {
    view.selectTab(1);
    int announcements = 0;
    const auto subscription = view.observe([&] { ++announcements; });
    view.selectTab(view.autoTrackingTab());
    EXPECT_TRUE(view.isAutoTrackingSelected());
    EXPECT_EQ(view.selectedTab(), 3);
    EXPECT_EQ(bench.store.selectedProjectIndex, 1);
    EXPECT_EQ(view.lastSelectedIndex(), 1);
    EXPECT_EQ(announcements, 1);
}

TEST_F(ProjectTabs, leadBackFromAutoTrackingAlsoToTheSameProject) {
    view.selectTab(1);
    view.selectAutoTracking();
    view.selectTab(1);
    EXPECT_FALSE(view.isAutoTrackingSelected());
    EXPECT_EQ(view.selectedTab(), 1);
}

TEST_F(ProjectTabs, autoTrackingStaysThroughTicksAndTimers) {
    view.selectAutoTracking();
    bench.runLoop.advance(3);
    bench.store.startTracking("läuft");
    bench.store.updateProject(0, "Intern", std::nullopt);
    EXPECT_TRUE(view.isAutoTrackingSelected());
}

TEST_F(ProjectTabs, autoTrackingGivesWayToANewProject) {
    view.selectAutoTracking();
    NewProjectView sheet(bench.store);
    sheet.projectName = "Neu";
    sheet.create();
    EXPECT_EQ(view.selectedTab(), 3);
    EXPECT_FALSE(view.isAutoTrackingSelected());
}

TEST_F(ProjectTabs, resettingAllDataShowsTheDefaultProject) {
    bench.store.startTracking("läuft");
    view.selectTab(2);
    view.selectAutoTracking();
    view.resetAllData();
    EXPECT_EQ(view.tabs(), std::vector<ProjectTab>{{"Standardprojekt"}});
    EXPECT_EQ(view.selectedTab(), 0);
    EXPECT_FALSE(view.isAutoTrackingSelected());
    EXPECT_TRUE(bench.store.activeEntries->empty());
    EXPECT_EQ(bench.projectSaves(), 2);
}

TEST_F(ProjectTabs, stepStopsAtBothEnds) {
    view.stepTabs(-1);
    EXPECT_EQ(view.selectedTab(), 0);
    view.stepTabs(1);
    EXPECT_EQ(view.selectedTab(), 1);
    view.stepTabs(2);
    EXPECT_TRUE(view.isAutoTrackingSelected());
    view.stepTabs(1);
    EXPECT_TRUE(view.isAutoTrackingSelected());
    view.stepTabs(-1);
    EXPECT_EQ(view.selectedTab(), 2);
}

TEST_F(ProjectTabs, deletingTheLastShownProjectShowsTheOneBefore) {
    view.selectTab(2);
    ProjectSettingsView(bench.store, 2).deleteProject();
    EXPECT_EQ(view.selectedTab(), 1);
    EXPECT_EQ(view.projectView()->project().name, "Web");
}

TEST_F(ProjectTabs, deletingAShownProjectInTheMiddleShowsTheNextOne) {
    view.selectTab(1);
    ProjectSettingsView(bench.store, 1).deleteProject();
    EXPECT_EQ(view.selectedTab(), 1);
    EXPECT_EQ(view.projectView()->project().name, "Druck");
}

TEST_F(ProjectTabs, deletingTheOnlyProjectShowsTheSubstitute) {
    for (int count = 0; count < 3; ++count)
        ProjectSettingsView(bench.store, 0).deleteProject();
    EXPECT_TRUE(view.tabs().empty());
    EXPECT_EQ(view.autoTrackingTab(), 0);
    EXPECT_FALSE(view.isAutoTrackingSelected());
    EXPECT_EQ(view.projectView()->project().name, "Fehler");
}

TEST_F(ProjectTabs, noneIsSelectedWhereTheSubstituteIsShown) {
    bench.store.selectedProjectIndex = 3;
    EXPECT_EQ(view.selectedTab(), noTab);
    EXPECT_EQ(view.projectView()->project().name, "Fehler");
    for (int count = 0; count < 3; ++count)
        bench.store.deleteProject(0);
    EXPECT_EQ(view.selectedTab(), noTab);
}

TEST_F(ProjectTabs, stepLeadsFromTheSubstituteToAutoTrackingAndBack) {
    for (int count = 0; count < 3; ++count)
        bench.store.deleteProject(0);
    view.stepTabs(1);
    EXPECT_TRUE(view.isAutoTrackingSelected());
    EXPECT_EQ(view.selectedTab(), view.autoTrackingTab());
    view.stepTabs(-1);
    EXPECT_EQ(view.selectedTab(), noTab);
    EXPECT_TRUE(bench.store.projects->empty());
}

TEST_F(ProjectTabs, startingWithoutAnyProjectCreatesTheDefaultOne) {
    for (int count = 0; count < 3; ++count)
        bench.store.deleteProject(0);
    view.projectView()->taskName = "Entwurf";
    view.projectView()->start();
    EXPECT_EQ(view.tabs(), (std::vector<ProjectTab>{{"Standardprojekt", TimerActivity::running}}));
    EXPECT_EQ(view.projectView()->timers().size(), 1U);
}

TEST_F(ProjectTabs, sayWhatTheProjectsTimersAreDoing) {
    bench.store.startTracking("eins");
    bench.store.startTracking("zwei");
    bench.store.selectedProjectIndex = 1;
    bench.store.startTracking("drei");
    const auto activity = [&](std::size_t tab) { return view.tabs().at(tab).timers; };
    bench.store.pauseTracking(view.projectView()->timers()[0].entryId);
    EXPECT_EQ(activity(0), TimerActivity::running);
    EXPECT_EQ(activity(1), TimerActivity::allPaused);
    EXPECT_EQ(activity(2), TimerActivity::none);

    view.selectTab(0);
    const auto timers = view.projectView()->timers();
    bench.store.pauseTracking(timers[0].entryId);
    EXPECT_EQ(activity(0), TimerActivity::running);
    bench.store.pauseTracking(timers[1].entryId);
    EXPECT_EQ(activity(0), TimerActivity::allPaused);
}

TEST_F(ProjectTabs, keepWhatIsTypedForTheirProject) {
    view.projectView()->taskName = "hier";
    view.selectTab(1);
    EXPECT_EQ(*view.projectView()->taskName, "");
    view.projectView()->taskName = "dort";
    view.selectTab(0);
    EXPECT_EQ(*view.projectView()->taskName, "hier");
    bench.store.deleteProject(0);
    EXPECT_EQ(view.projectView()->project().name, "Web");
    EXPECT_EQ(*view.projectView()->taskName, "dort");
}

TEST_F(ProjectTabs, timerStartedAtATabBelongsToItsProject) {
    view.selectTab(1);
    view.projectView()->taskName = "Entwurf";
    view.projectView()->start();
    EXPECT_EQ(bench.store.activeEntries->begin()->second.projectId, bench.project(1).id);
}

TEST_F(ProjectTabs, nameStaysOnOneLine) {
    bench.store.updateProject(0, "zwei\nZeilen", std::nullopt);
    EXPECT_EQ(view.tabs()[0].name, "zwei Zeilen");
}

} // namespace
} // namespace brisklog::test
