#pragma once

#include "overview/DashboardFigures.h"

namespace brisklog::test {

inline TimeEntry entryBetween(Date start, std::optional<Date> end) {
    TimeEntry entry;
    entry.id = Uuid::generate();
    entry.taskName = "Arbeit";
    entry.startTime = start;
    entry.endTime = end;
    return entry;
}

inline ActiveEntryState timerFrom(Date start, const Uuid& projectId) {
    ActiveEntryState timer;
    timer.entry = entryBetween(start, {});
    timer.id = timer.entry.id;
    timer.projectId = projectId;
    return timer;
}

inline Project projectWith(std::optional<double> rate, std::vector<TimeEntry> entries = {}) {
    return {.id = Uuid::generate(), .name = "Projekt", .hourlyRate = rate, .entries = std::move(entries)};
}

} // namespace brisklog::test
