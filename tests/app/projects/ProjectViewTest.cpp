#include "app/projects/ProjectView.h"
#include "app/projects/ProjectWorkbench.h"

#include <gtest/gtest.h>
#include <limits>

namespace brisklog::test {
namespace {

class ProjectScreenState : public ::testing::Test {
protected:
    void start(const std::string& taskName) {
        view.taskName = taskName;
        view.start();
        bench.runLoop.advance(0.5);
    }

    [[nodiscard]] std::vector<std::string> timerNames(const ProjectView& of) const {
        std::vector<std::string> names;
        for (const TimerRow& row : of.timers())
            names.push_back(row.taskName);
        return names;
    }

    [[nodiscard]] std::string duration() const { return view.timers().at(0).duration; }

    ProjectWorkbench bench;
    ProjectView view{bench.services(), 0};
};

TEST_F(ProjectScreenState, startsATimerUnderTheTypedName) {
    view.taskName = "Entwurf";
    view.start();
    ASSERT_EQ(view.timers().size(), 1U);
    EXPECT_EQ(view.timers()[0].taskName, "Entwurf");
    EXPECT_EQ(bench.store.activeEntries->begin()->second.entry.startTime, bench.clock.now());
    EXPECT_EQ(bench.projectSaves(), 1);
}

TEST_F(ProjectScreenState, nameOfOnlySpacesStartsNothing) {
    for (const char* name : {"", "   ", " \t\n", "\u00A0"}) {
        start(name);
        EXPECT_FALSE(view.isProcessing);
        EXPECT_EQ(*view.taskName, name);
    }
    EXPECT_TRUE(bench.store.activeEntries->empty());
    EXPECT_TRUE(bench.files.written.empty());
}

TEST_F(ProjectScreenState, nameKeepsTheSpacesAroundIt) {
    start("  Entwurf ");
    EXPECT_EQ(bench.store.activeEntries->begin()->second.entry.taskName, "  Entwurf ");
}

TEST_F(ProjectScreenState, typedNameIsClearedThreeTenthsOfASecondLater) {
    view.taskName = "Entwurf";
    view.start();
    EXPECT_TRUE(view.isProcessing);
    bench.runLoop.advance(0.299);
    EXPECT_EQ(*view.taskName, "Entwurf");
    EXPECT_TRUE(view.isProcessing);
    bench.runLoop.advance(0.002);
    EXPECT_EQ(*view.taskName, "");
    EXPECT_FALSE(view.isProcessing);
}

TEST_F(ProjectScreenState, pressingStartTwiceStartsOneTimer) {
    view.taskName = "Entwurf";
    view.start();
    view.start();
    EXPECT_EQ(bench.store.activeEntries->size(), 1U);
}

TEST_F(ProjectScreenState, nextTimerCanBeStartedOnceTheNameIsCleared) {
    start("Entwurf");
    start("Telefonat");
    EXPECT_EQ(timerNames(view), (std::vector<std::string>{"Entwurf", "Telefonat"}));
}

TEST_F(ProjectScreenState, everyChangeIsAnnounced) {
    int announcements = 0;
    const auto subscription = view.observe([&] { ++announcements; });
    view.taskName = "Entwurf";
    EXPECT_EQ(announcements, 1);
    view.start();
    EXPECT_EQ(announcements, 2);
    bench.runLoop.advance(0.5);
    EXPECT_EQ(announcements, 4);
}

TEST_F(ProjectScreenState, goingAwayWhileClearingIsPendingIsHarmless) {
    {
        ProjectView shortLived(bench.services(), 0);
        shortLived.taskName = "Entwurf";
        shortLived.start();
    }
    bench.runLoop.advance(1);
    EXPECT_EQ(bench.store.activeEntries->size(), 1U);
}

TEST_F(ProjectScreenState, timersAreListedByTheirStart) {
    for (const char* name : {"eins", "zwei", "drei", "vier", "fünf"})
        start(name);
    EXPECT_EQ(timerNames(view), (std::vector<std::string>{"eins", "zwei", "drei", "vier", "fünf"}));
}

TEST_F(ProjectScreenState, timersOfTheSameMomentKeepTheirPlaces) {
    for (int count = 0; count < 20; ++count)
        bench.store.startTracking("Entwurf");
    const auto before = view.timers();
    bench.store.pauseTracking(before[7].entryId);
    bench.store.resumeTracking(before[7].entryId);
    EXPECT_EQ(view.timers(), before);
}

TEST_F(ProjectScreenState, runningDurationIsHoursMinutesSeconds) {
    start("Entwurf");
    bench.clock.advance(306.5);
    EXPECT_EQ(duration(), "00:05:07");
    bench.clock.advance(100 * 3600);
    EXPECT_EQ(duration(), "100:05:07");
}

TEST_F(ProjectScreenState, durationThatCannotBeFormedShowsZeros) {
    bench.clock.set(Date{-std::numeric_limits<double>::infinity()});
    bench.store.startTracking("Entwurf");
    EXPECT_EQ(duration(), "00:00:00");
}

TEST_F(ProjectScreenState, pauseFreezesTheDurationAndResumingBringsThePauseBack) {
    bench.store.startTracking("Entwurf");
    bench.clock.advance(600);
    view.pauseOrResume(view.timers()[0]);
    bench.clock.advance(600);
    EXPECT_TRUE(view.timers()[0].isPaused);
    EXPECT_EQ(duration(), "00:10:00");
    view.pauseOrResume(view.timers()[0]);
    bench.clock.advance(300);
    EXPECT_FALSE(view.timers()[0].isPaused);
    EXPECT_EQ(duration(), "00:25:00");
}

TEST_F(ProjectScreenState, stoppedTimerBecomesTheProjectsLastEntry) {
    bench.store.addManualEntry(bench.project(0).id, bench.entry("früher"));
    start("Entwurf");
    view.stop(view.timers()[0].entryId);
    EXPECT_TRUE(view.timers().empty());
    ASSERT_EQ(view.project().entries.size(), 2U);
    EXPECT_EQ(view.project().entries[1].taskName, "Entwurf");
}

TEST_F(ProjectScreenState, timersOfOtherProjectsAreNotListedButKeepRunning) {
    start("hier");
    bench.store.addProject("Web", std::nullopt);
    ProjectView other(bench.services(), 1);
    other.taskName = "dort";
    other.start();
    bench.runLoop.advance(10);
    EXPECT_EQ(timerNames(view), std::vector<std::string>{"hier"});
    EXPECT_EQ(timerNames(other), std::vector<std::string>{"dort"});
    EXPECT_EQ(bench.store.activeEntries->size(), 2U);
    EXPECT_EQ(other.timers()[0].duration, "00:00:10");
}

TEST_F(ProjectScreenState, resettingEmptiesThisProjectAndKeepsItsTimers) {
    bench.store.addManualEntry(bench.project(0).id, bench.entry("früher"));
    bench.store.addProject("Web", std::nullopt);
    bench.store.addManualEntry(bench.project(1).id, bench.entry("bleibt"));
    bench.store.selectedProjectIndex = 0;
    start("läuft");
    view.resetProject();
    EXPECT_TRUE(bench.project(0).entries.empty());
    EXPECT_EQ(bench.project(1).entries.size(), 1U);
    EXPECT_EQ(timerNames(view), std::vector<std::string>{"läuft"});
}

TEST_F(ProjectScreenState, positionOutOfRangeShowsTheSubstitute) {
    for (const int index : {-1, 1, 1000}) {
        ProjectView outside(bench.services(), index);
        EXPECT_EQ(outside.project().name, "Fehler");
        EXPECT_TRUE(outside.project().entries.empty());
        EXPECT_TRUE(outside.timers().empty());
        outside.resetProject();
    }
    EXPECT_TRUE(bench.files.written.empty());
}

TEST_F(ProjectScreenState, projectDeletedUnderneathBecomesTheSubstitute) {
    start("läuft");
    bench.store.deleteProject(0);
    EXPECT_EQ(view.project().name, "Fehler");
    EXPECT_TRUE(view.timers().empty());
}

TEST_F(ProjectScreenState, pdfIsExportedThroughWhatWasHandedIn) {
    EXPECT_FALSE(view.canExportPDF());
    view.exportPDF();

    std::vector<std::string> exported;
    ProjectServices services = bench.services();
    services.exportReport = [&](const Project& project) { exported.push_back(project.name); };
    ProjectView exporting(services, 0);
    EXPECT_TRUE(exporting.canExportPDF());
    exporting.exportPDF();
    EXPECT_EQ(exported, std::vector<std::string>{"Standardprojekt"});
}

TEST_F(ProjectScreenState, theSubstituteIsNeverExported) {
    std::vector<std::string> exported;
    ProjectServices services = bench.services();
    services.exportReport = [&](const Project& project) { exported.push_back(project.name); };
    ProjectView nowhere(services, 7);
    EXPECT_FALSE(nowhere.canExportPDF());
    nowhere.exportPDF();
    EXPECT_TRUE(exported.empty());
}

TEST_F(ProjectScreenState, screenReadersHearWhatBecomesOfATimer) {
    std::vector<std::string> said;
    ProjectServices services = bench.services();
    services.announce = [&](const std::string& text) { said.push_back(text); };
    ProjectView heard(services, 0);
    heard.start();
    EXPECT_TRUE(said.empty());
    heard.taskName = "Entwurf\nTeil zwei";
    heard.start();
    bench.runLoop.advance(5400);
    heard.pauseOrResume(heard.timers().at(0));
    heard.pauseOrResume(heard.timers().at(0));
    const Uuid timer = heard.timers().at(0).entryId;
    heard.stop(timer);
    heard.stop(timer);
    EXPECT_EQ(said, (std::vector<std::string>{"Timer gestartet: Entwurf Teil zwei",
                                              "Timer pausiert: Entwurf Teil zwei",
                                              "Timer fortgesetzt: Entwurf Teil zwei",
                                              "Timer gestoppt: Entwurf Teil zwei, 1\u00A0h 30\u00A0min"}));
}

TEST_F(ProjectScreenState, taskNameOfSeveralLinesStaysOnOne) {
    bench.store.startTracking("Entwurf\nTeil zwei");
    EXPECT_EQ(timerNames(view), std::vector<std::string>{"Entwurf Teil zwei"});
}

} // namespace
} // namespace brisklog::test
