#pragma once

#include "overview/DashboardFigures.h"

namespace brisklog::test {

/// Each figure by its own definition, with a walk over all entries of its own.
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
    /// The sum over the entries that the test accepts, and over the timers that the other one accepts.
    template <class EntryTest, class TimerTest>
    [[nodiscard]] TimeInterval sum(EntryTest countsEntry, TimerTest countsTimer) const;
    [[nodiscard]] TimeInterval length(const TimeEntry& entry) const;
    [[nodiscard]] TimeInterval length(const ActiveEntryState& timer) const;
};

} // namespace brisklog::test
