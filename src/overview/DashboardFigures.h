#pragma once

#include "core/TimeTrackingStore.h"
#include "foundation/Calendar.h"

#include <array>
#include <optional>
#include <string>
#include <vector>

namespace brisklog {

/// One project's figures on the dashboard.
struct ProjectFigures {
    /// Seconds of its entries and timers.
    TimeInterval workingTime = 0;
    /// Euros of its entries at the project's rate; absent without a rate. Timers and an entry's own rate are
    /// deliberately ignored.
    std::optional<double> earnings;

    bool operator==(const ProjectFigures&) const = default;
};

/// Every figure of the dashboard. Their definitions deliberately differ.
struct DashboardFigures {
    static constexpr std::size_t dayCount = 7;
    static constexpr std::size_t monthCount = 3;

    /// Seconds of the entries and timers that started today.
    TimeInterval todaysWork = 0;
    /// Seconds of all entries and timers.
    TimeInterval totalWork = 0;
    /// Seconds of what started in the last seven days, including today, whenever it ended.
    TimeInterval weeklyTotal = 0;
    /// Euros of all entries of projects with a rate.
    double totalEarnings = 0;
    /// In the order of the projects.
    std::vector<ProjectFigures> projects;
    /// Hours per day, from six days ago to today. An entry that ends at or after the following midnight
    /// counts on no day at all; a timer counts in full on the day it started.
    std::array<double, dayCount> hoursWorked{};
    /// Euros per month, from two months ago to this month: what started and ended in that month, at the
    /// project's rate.
    std::array<double, monthCount> revenue{};

    bool operator==(const DashboardFigures&) const = default;
};

/// A date in each of the figures' days and months, oldest first.
[[nodiscard]] std::array<Date, DashboardFigures::dayCount> dashboardDays(const Calendar& calendar, Date now);
[[nodiscard]] std::array<Date, DashboardFigures::monthCount> dashboardMonths(const Calendar& calendar,
                                                                             Date now);

/// All figures in one pass over the entries.
[[nodiscard]] DashboardFigures dashboardFigures(const std::vector<Project>& projects,
                                                const TimeTrackingStore::ActiveEntries& timers,
                                                const Calendar& calendar, Date now);

} // namespace brisklog
