#include "StoreFixture.h"
#include "support/WritableStore.h"

namespace brisklog::test {
namespace {

constexpr double minute = 60;

class Timers : public StoreTest {
protected:
    Uuid startTimer(const std::string& taskName) {
        std::vector<Uuid> before;
        for (const auto& [id, state] : store->activeEntries.get())
            before.push_back(id);
        store->startTracking(taskName);
        for (const auto& [id, state] : store->activeEntries.get())
            if (std::ranges::find(before, id) == before.end())
                return id;
        ADD_FAILURE() << "no timer was started";
        return {};
    }

    const ActiveEntryState& timer(const Uuid& id) const { return store->activeEntries->at(id); }

    [[nodiscard]] double shown(const Uuid& id) const { return timer(id).currentDuration(clock.now()); }

    const std::vector<TimeEntry>& entries() const { return store->projects->front().entries; }

    std::unique_ptr<TimeTrackingStore> store = startQuietly();
    const Date start0 = clock.now();
};

TEST_F(Timers, startedOneRecordsForTheCurrentProject) {
    store->addProject("A", 80);
    const Uuid project = store->projects->at(1).id;
    files.written.clear();
    const Uuid id = startTimer("  Entwurf ");
    const ActiveEntryState& state = timer(id);
    EXPECT_EQ(state.id, id);
    EXPECT_EQ(state.entry.id, id);
    EXPECT_EQ(state.entry.taskName, "  Entwurf ") << "the name is taken as it is";
    EXPECT_EQ(state.entry.startTime, clock.now());
    EXPECT_EQ(state.entry.endTime, std::nullopt);
    EXPECT_EQ(state.entry.projectId, project);
    EXPECT_EQ(state.entry.note, std::nullopt);
    EXPECT_EQ(state.entry.hourlyRate, std::nullopt);
    EXPECT_FALSE(state.entry.isInvoiced);
    EXPECT_FALSE(state.isPaused);
    EXPECT_EQ(state.pauseStartTime, std::nullopt);
    EXPECT_EQ(state.totalPauseDuration, 0);
    EXPECT_EQ(state.projectId, project);
}

TEST_F(Timers, emptyNameIsAccepted) { EXPECT_EQ(timer(startTimer("")).entry.taskName, ""); }

TEST_F(Timers, startRewritesTheProjectsFileThoughNothingInItChanged) {
    store->addProject("A", {});
    files.written.clear();
    const std::string before = readFile(file("projects.json"));
    startTimer("x");
    EXPECT_EQ(files.written, Names{"projects.json"});
    EXPECT_EQ(readFile(file("projects.json")), before);
}

TEST_F(Timers, pauseIsNotDeductedFromTheFinishedEntry) {
    const Uuid id = startTimer("A");
    clock.advance(10 * minute);
    store->pauseTracking(id);
    clock.advance(10 * minute);
    store->resumeTracking(id);
    EXPECT_EQ(timer(id).totalPauseDuration, 600);
    EXPECT_EQ(timer(id).pauseStartTime, std::nullopt);
    clock.advance(10 * minute);
    store->stopTracking(id);
    ASSERT_EQ(entries().size(), 1U);
    EXPECT_EQ(entries()[0].startTime, start0);
    EXPECT_EQ(entries()[0].endTime, start0.addingSeconds(30 * minute));
    EXPECT_TRUE(store->activeEntries->empty());
}

TEST_F(Timers, stoppedWhilePausedItSpansToTheStop) {
    const Uuid id = startTimer("A");
    clock.advance(10 * minute);
    store->pauseTracking(id);
    clock.advance(10 * minute);
    store->stopTracking(id);
    EXPECT_EQ(entries().at(0).duration(clock.now()), 20 * minute);
}

TEST_F(Timers, shownDurationStandsStillWhilePausedAndJumpsAfterResuming) {
    const Uuid id = startTimer("A");
    clock.advance(10 * minute);
    store->pauseTracking(id);
    EXPECT_EQ(shown(id), 10 * minute);
    clock.advance(9 * minute);
    EXPECT_EQ(shown(id), 10 * minute);
    clock.advance(1 * minute);
    store->resumeTracking(id);
    clock.advance(5 * minute);
    EXPECT_EQ(shown(id), 25 * minute);
}

TEST_F(Timers, pausingAPausedOneRestartsThePauseAndLosesItsEarlierPart) {
    const Uuid id = startTimer("A");
    store->pauseTracking(id);
    clock.advance(10 * minute);
    store->pauseTracking(id);
    EXPECT_EQ(timer(id).pauseStartTime, clock.now());
    clock.advance(5 * minute);
    store->resumeTracking(id);
    EXPECT_EQ(timer(id).totalPauseDuration, 5 * minute);
}

TEST_F(Timers, pausesAddUp) {
    const Uuid id = startTimer("A");
    for (int i = 0; i < 3; ++i) {
        store->pauseTracking(id);
        clock.advance(minute);
        store->resumeTracking(id);
        clock.advance(minute);
    }
    EXPECT_EQ(timer(id).totalPauseDuration, 3 * minute);
}

TEST_F(Timers, resumingARunningOneChangesNothing) {
    const Uuid id = startTimer("A");
    clock.advance(minute);
    store->resumeTracking(id);
    EXPECT_EQ(timer(id).totalPauseDuration, 0);
    EXPECT_FALSE(timer(id).isPaused);
    EXPECT_EQ(timer(id).pauseStartTime, std::nullopt);
}

TEST_F(Timers, pauseThatIsNoneAnyMoreIsNotCounted) {
    const Uuid id = startTimer("A");
    writable(store->activeEntries).mutate([&](auto& timers) { timers.at(id).pauseStartTime = clock.now(); });
    clock.advance(minute);
    store->resumeTracking(id);
    EXPECT_EQ(timer(id).totalPauseDuration, 0);
    EXPECT_EQ(timer(id).pauseStartTime, std::nullopt);
}

TEST_F(Timers, pauseAndResumeWriteNoFile) {
    const Uuid id = startTimer("A");
    files.written.clear();
    store->pauseTracking(id);
    store->resumeTracking(id);
    EXPECT_EQ(files.written, Names());
}

TEST_F(Timers, severalRunIndependentlyAndAreStoredInTheOrderOfStopping) {
    const Uuid first = startTimer("A");
    clock.advance(minute);
    const Uuid second = startTimer("B");
    clock.advance(minute);
    store->pauseTracking(first);
    EXPECT_FALSE(timer(second).isPaused);
    store->stopTracking(second);
    clock.advance(minute);
    store->stopTracking(first);
    ASSERT_EQ(entries().size(), 2U);
    EXPECT_EQ(entries()[0].taskName, "B");
    EXPECT_EQ(entries()[0].duration(clock.now()), minute);
    EXPECT_EQ(entries()[1].taskName, "A");
    EXPECT_EQ(entries()[1].duration(clock.now()), 3 * minute);
}

TEST_F(Timers, stoppingSavesTheProjectsOnceAndTwiceIsOnce) {
    const Uuid id = startTimer("A");
    files.written.clear();
    store->stopTracking(id);
    store->stopTracking(id);
    EXPECT_EQ(files.written, Names{"projects.json"});
    EXPECT_EQ(entries().size(), 1U);
}

TEST_F(Timers, stoppedEntryGoesToItsOwnProjectWhateverIsSelected) {
    const Uuid id = startTimer("A");
    store->addProject("Anderes", {});
    store->stopTracking(id);
    EXPECT_EQ(entries().size(), 1U);
    EXPECT_TRUE(store->projects->at(1).entries.empty());
}

TEST_F(Timers, entryOfADeletedProjectIsDroppedSilently) {
    const Uuid id = startTimer("A");
    store->deleteProject(0);
    store->addProject("Anderes", {});
    EXPECT_EQ(store->activeEntries->size(), 1U) << "deleting the project leaves its timers";
    files.written.clear();
    store->stopTracking(id);
    EXPECT_TRUE(store->activeEntries->empty());
    EXPECT_TRUE(entries().empty());
    EXPECT_EQ(files.written, Names());
    EXPECT_TRUE(log.lines.empty());
}

TEST_F(Timers, entryOfAResetProjectIsAppendedToIt) {
    const Uuid id = startTimer("A");
    store->resetProject(0);
    store->stopTracking(id);
    EXPECT_EQ(entries().size(), 1U);
}

TEST_F(Timers, withoutAnyProjectTheDefaultOneIsMadeAndSavedFirst) {
    store->deleteProject(0);
    files.written.clear();
    const Uuid id = startTimer("A");
    EXPECT_EQ(projectNames(*store), Names{"Standardprojekt"});
    EXPECT_EQ(timer(id).projectId, store->projects->front().id);
    EXPECT_EQ(files.written, (Names{"projects.json", "projects.json"}));
}

TEST_F(Timers, failedSaveKeepsTimerAndEntry) {
    files.writesFail = true;
    const Uuid id = startTimer("A");
    EXPECT_EQ(store->activeEntries->size(), 1U);
    store->stopTracking(id);
    EXPECT_EQ(entries().size(), 1U);
    EXPECT_EQ(log.countStartingWith("Error saving projects: "), 2U);
}

TEST_F(Timers, clockSetBackGivesANegativeDurationAndNoHarm) {
    const Uuid id = startTimer("A");
    clock.advance(-minute);
    EXPECT_EQ(shown(id), -minute);
    store->stopTracking(id);
    EXPECT_EQ(entries().at(0).duration(clock.now()), -minute);
    EXPECT_EQ(start()->projects->at(0).entries.at(0), entries()[0]);
}

TEST_F(Timers, fractionsOfASecondAreKeptInTheFile) {
    clock.set(Date{816426000.123456});
    const Uuid id = startTimer("A");
    clock.advance(7 * minute + 30.5);
    store->stopTracking(id);
    EXPECT_EQ(start()->projects->at(0).entries.at(0), entries()[0]);
}

TEST_F(Timers, recordedTimeIsExactAndNeverOnAGrid) {
    const Uuid id = startTimer("A");
    clock.advance(7.5 * minute);
    store->stopTracking(id);
    EXPECT_EQ(entries().at(0).startTime, start0);
    EXPECT_EQ(entries().at(0).duration(clock.now()), 450);
}

// The tick

TEST_F(Timers, tickAnnouncesOnceASecondWithoutChangingAnything) {
    startTimer("A");
    const auto projects = store->projects.revision();
    const auto timers = store->activeEntries.revision();
    files.written.clear();
    int told = 0;
    const Subscription subscription = store->observe([&told] { ++told; });
    runLoop.advance(0.9);
    EXPECT_EQ(told, 0);
    runLoop.advance(0.1);
    EXPECT_EQ(told, 1);
    runLoop.advance(59);
    EXPECT_EQ(told, 60);
    EXPECT_EQ(store->projects.revision(), projects);
    EXPECT_EQ(store->activeEntries.revision(), timers);
    EXPECT_EQ(files.written, Names());
}

TEST_F(Timers, tickRunsWithoutTimersToo) {
    int told = 0;
    const Subscription subscription = store->observe([&told] { ++told; });
    runLoop.advance(2);
    EXPECT_EQ(told, 2);
}

TEST_F(Timers, tickKeepsNothingAliveAndEndsWithTheStore) {
    EXPECT_EQ(runLoop.timerCount(), 1U);
    store.reset();
    EXPECT_EQ(runLoop.timerCount(), 0U);
    runLoop.advance(5);
}

TEST_F(Timers, storeMayEndDuringItsOwnTick) {
    Subscription subscription = store->observe([this] { store.reset(); });
    runLoop.advance(1);
    EXPECT_EQ(store, nullptr);
}

} // namespace
} // namespace brisklog::test
