// The store's running timers.

#include "core/TimeTrackingStore.h"

#include <algorithm>

namespace brisklog {

template <class Change>
void TimeTrackingStore::changeTimer(const Uuid& entryId, Change change) {
    if (!activeEntries->contains(entryId))
        return;
    activeEntries.mutate([&](ActiveEntries& timers) { change(timers.at(entryId)); });
}

void TimeTrackingStore::startTracking(const std::string& taskName) {
    const Date now = m_platform.clock.now();
    const Uuid projectId = currentProject().id;
    TimeEntry entry;
    entry.id = Uuid::generate();
    entry.taskName = taskName;
    entry.startTime = now;
    entry.projectId = projectId;
    activeEntries.mutate([&](ActiveEntries& timers) {
        ActiveEntryState state;
        state.id = entry.id;
        state.entry = entry;
        state.projectId = projectId;
        timers.insert_or_assign(entry.id, state);
    });
    // The projects have not changed; their file is deliberately rewritten anyway.
    saveProjects();
}

void TimeTrackingStore::pauseTracking(const Uuid& entryId) {
    changeTimer(entryId, [now = m_platform.clock.now()](ActiveEntryState& state) {
        state.isPaused = true;
        state.pauseStartTime = now;
    });
}

void TimeTrackingStore::resumeTracking(const Uuid& entryId) {
    changeTimer(entryId, [now = m_platform.clock.now()](ActiveEntryState& state) {
        if (state.isPaused && state.pauseStartTime)
            state.totalPauseDuration += now.since(*state.pauseStartTime);
        state.isPaused = false;
        state.pauseStartTime.reset();
    });
}

void TimeTrackingStore::stopTracking(const Uuid& entryId) {
    const auto found = activeEntries->find(entryId);
    if (found == activeEntries->end())
        return;
    TimeEntry entry = found->second.entry;
    entry.endTime = m_platform.clock.now();
    if (entry.projectId &&
        changeProject(*entry.projectId, [&entry](Project& project) { project.entries.push_back(entry); }))
        saveProjects();
    activeEntries.mutate([&entryId](ActiveEntries& timers) { timers.erase(entryId); });
}

} // namespace brisklog
