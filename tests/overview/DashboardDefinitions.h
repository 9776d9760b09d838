#pragma once

#include "overview/DashboardFigures.h"

namespace brisklog::test {

/// Each figure computed straight from its definition, in a separate pass over all entries.
struct DashboardDefinitions {
    const std::vector<Project>& projects;
    const TimeTrackingStore::ActiveEntries& timers;
    const Calendar& calendar;
    Date now;

    [[nodiscard]] TimeInterval todaysWork() const;
    [[nodiscard]] TimeInterval totalWork() const;
    [[nodiscard]] TimeInterval projectTotal(const Project& project) const;
    [[nodiscard]] double totalEarnings() const;
    [[nodiscard]] TimeInterval weeklyTotal() const;
    [[nodiscard]] double hoursWorkedOnDay(Date date) const;
    [[nodiscard]] double revenueForMonth(Date date) const;

    [[nodiscard]] DashboardFigures all() const;

private:
    /// The total length of the entries and of the timers that the predicates accept.
    template <class EntryTest, class TimerTest>
    [[nodiscard]] TimeInterval sum(EntryTest countsEntry, TimerTest countsTimer) const;
    [[nodiscard]] TimeInterval length(const TimeEntry& entry) const;
    [[nodiscard]] TimeInterval length(const ActiveEntryState& timer) const;
};

} // namespace brisklog::test
