#include "DashboardDefinitions.h"

namespace brisklog::test {

TimeInterval DashboardDefinitions::length(const TimeEntry& entry) const {
    return (entry.endTime ? *entry.endTime : now).since(entry.startTime);
}

TimeInterval DashboardDefinitions::length(const ActiveEntryState& timer) const {
    const TimeInterval running = now.since(timer.entry.startTime);
    return timer.isPaused && timer.pauseStartTime ? running - now.since(*timer.pauseStartTime) : running;
}

template <class EntryTest, class TimerTest>
TimeInterval DashboardDefinitions::sum(EntryTest countsEntry, TimerTest countsTimer) const {
    TimeInterval total = 0;
    for (const Project& project : projects)
        for (const TimeEntry& entry : project.entries)
            if (countsEntry(entry))
                total += length(entry);
    for (const auto& [id, timer] : timers)
        if (countsTimer(timer))
            total += length(timer);
    return total;
}

TimeInterval DashboardDefinitions::todaysWork() const {
    const auto today = calendar.dayOf(now);
    return sum([&](const TimeEntry& entry) { return calendar.dayOf(entry.startTime) == today; },
               [&](const ActiveEntryState& timer) { return calendar.dayOf(timer.entry.startTime) == today; });
}

TimeInterval DashboardDefinitions::totalWork() const {
    return sum([](const TimeEntry&) { return true; }, [](const ActiveEntryState&) { return true; });
}

TimeInterval DashboardDefinitions::projectTotal(const Project& project) const {
    TimeInterval total = 0;
    for (const TimeEntry& entry : project.entries)
        total += length(entry);
    for (const auto& [id, timer] : timers)
        if (timer.projectId == project.id)
            total += length(timer);
    return total;
}

double DashboardDefinitions::totalEarnings() const {
    double total = 0;
    for (const Project& project : projects)
        if (project.hourlyRate) {
            TimeInterval time = 0;
            for (const TimeEntry& entry : project.entries)
                time += length(entry);
            total += *project.hourlyRate * (time / 3600);
        }
    return total;
}

TimeInterval DashboardDefinitions::weeklyTotal() const {
    const Date start = calendar.addingDays(calendar.dayOf(now).start, -6);
    return sum([&](const TimeEntry& entry) { return entry.startTime >= start; },
               [&](const ActiveEntryState& timer) { return timer.entry.startTime >= start; });
}

double DashboardDefinitions::hoursWorkedOnDay(Date date) const {
    const Date start = calendar.dayOf(date).start;
    const Date end = calendar.addingDays(start, 1);
    return sum(
               [&](const TimeEntry& entry) {
                   return entry.startTime >= start && entry.endTime.value_or(now) < end;
               },
               [&](const ActiveEntryState& timer) {
                   return timer.entry.startTime >= start && timer.entry.startTime < end;
               }) /
           3600;
}

double DashboardDefinitions::revenueForMonth(Date date) const {
    const Date start = calendar.startOfMonth(date);
    const Date end = calendar.addingMonths(start, 1);
    double total = 0;
    for (const Project& project : projects)
        for (const TimeEntry& entry : project.entries)
            if (project.hourlyRate && entry.startTime >= start && entry.endTime.value_or(now) < end)
                total += *project.hourlyRate * (length(entry) / 3600);
    return total;
}

DashboardFigures DashboardDefinitions::all() const {
    DashboardFigures figures{.todaysWork = todaysWork(),
                             .totalWork = totalWork(),
                             .weeklyTotal = weeklyTotal(),
                             .totalEarnings = totalEarnings(),
                             .projects = {},
                             .hoursWorked = {},
                             .revenue = {}};
    for (const Project& project : projects) {
        ProjectFigures line{.workingTime = projectTotal(project), .earnings = {}};
        if (project.hourlyRate)
            line.earnings = *project.hourlyRate * project.totalDuration(now) / 3600;
        figures.projects.push_back(line);
    }
    for (int i = 0; i < 7; ++i)
        figures.hoursWorked[static_cast<std::size_t>(i)] = hoursWorkedOnDay(calendar.addingDays(now, i - 6));
    for (int i = 0; i < 3; ++i)
        figures.revenue[static_cast<std::size_t>(i)] = revenueForMonth(calendar.addingMonths(now, i - 2));
    return figures;
}

} // namespace brisklog::test
