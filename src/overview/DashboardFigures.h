#pragma once

#include "core/TimeTrackingStore.h"
#include "foundation/Calendar.h"

#include <array>
#include <optional>
#include <string>
#include <vector>

namespace brisklog {

/// One project's line of the dashboard.
struct ProjectFigures {
    /// Seconds of its entries and of its running timers.
    TimeInterval workingTime = 0;
    /// Euros of its entries at the project's rate; absent without a rate. Running timers deliberately add
    /// nothing, and an entry's own rate is deliberately not looked at.
    std::optional<double> earnings;

    bool operator==(const ProjectFigures&) const = default;
};

/// Every figure of the dashboard. They are deliberately not all defined alike.
struct DashboardFigures {
    static constexpr std::size_t dayCount = 7;
    static constexpr std::size_t monthCount = 3;

    /// Seconds of what started today: entries, and timers.
    TimeInterval todaysWork = 0;
    /// Seconds of all entries and timers.
    TimeInterval totalWork = 0;
    /// Seconds of what started in the last seven days, today included, whenever it ended.
    TimeInterval weeklyTotal = 0;
    /// Euros of all entries of projects with a rate.
    double totalEarnings = 0;
    /// In the order of the projects.
    std::vector<ProjectFigures> projects;
    /// From six days ago to today, in hours. An entry that ends at or after the midnight that follows counts
    /// on no day at all, a timer in full on the day on which it started.
    std::array<double, dayCount> hoursWorked{};
    /// From two months ago to this month, in euros: what started and ended in that month, at the project's
    /// rate.
    std::array<double, monthCount> revenue{};

    bool operator==(const DashboardFigures&) const = default;
};

/// The dates that stand for the days and months of the figures, the oldest first.
[[nodiscard]] std::array<Date, DashboardFigures::dayCount> dashboardDays(const Calendar& calendar, Date now);
[[nodiscard]] std::array<Date, DashboardFigures::monthCount> dashboardMonths(const Calendar& calendar,
                                                                             Date now);

/// All figures in one pass over the entries.
[[nodiscard]] DashboardFigures dashboardFigures(const std::vector<Project>& projects,
                                                const TimeTrackingStore::ActiveEntries& timers,
                                                const Calendar& calendar, Date now);

} // namespace brisklog
