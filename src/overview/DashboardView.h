#pragma once

#include "core/TimeTrackingStore.h"
#include "foundation/Calendar.h"
#include "overview/ChartScale.h"
#include "overview/DashboardFigures.h"

#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace brisklog {

/// One day of the last seven.
struct WeeklyDataPoint {
    Uuid id;
    /// Abbreviated weekday.
    std::string day;
    double hours = 0;
};

/// One of the last three months.
struct MonthlyRevenueDataPoint {
    Uuid id;
    /// Abbreviated name.
    std::string month;
    /// Euros.
    double revenue = 0;
};

/// One running or paused timer as its row shows it, with the duration at the moment the row was made.
struct ActiveTimerRow {
    std::string projectName;
    std::string taskName;
    /// "Gestartet: 13:02"
    std::string started;
    /// 01:24:07
    std::string duration;
    bool isPaused = false;

    bool operator==(const ActiveTimerRow&) const = default;
};

/// One project as its row shows it.
struct ProjectOverviewRow {
    std::string name;
    std::string workingTime;
    /// Absent for a project without a rate.
    std::optional<std::string> earnings;

    bool operator==(const ProjectOverviewRow&) const = default;
};

/// Everything the dashboard shows, as texts.
struct DashboardContent {
    std::string currentDate;
    std::string todaysWork;
    std::string totalWork;
    std::vector<ProjectOverviewRow> projects;
    std::string totalEarnings;
    ChartContent week;
    std::string weeklyTotal;
    std::string averagePerDay;
    /// True even if none of them has a row because their projects were deleted.
    bool hasTimers = false;
    std::vector<ActiveTimerRow> timers;
    ChartContent revenue;
    std::string currentMonth;

    bool operator==(const DashboardContent&) const = default;
};

/// What the dashboard depends on.
struct DashboardServices {
    TimeTrackingStore& store;
    Clock& clock;
    RunLoop& runLoop;
};

/// The overview of all work. It changes nothing and stores nothing: every figure is computed when it is
/// shown.
class DashboardView final : public ObservableObject {
public:
    explicit DashboardView(DashboardServices services);

    /// A new value redraws the whole screen.
    Published<Uuid> refreshID;

    [[nodiscard]] TimeTrackingStore& store() const { return m_services.store; }

    /// Between these calls the screen is refreshed every 30 seconds, in addition to every change of the
    /// store.
    void appear();
    void disappear();

    [[nodiscard]] DashboardContent content() const;

private:
    [[nodiscard]] std::vector<ActiveTimerRow> timerRows(const Calendar& calendar, Date now) const;
    [[nodiscard]] std::vector<ProjectOverviewRow> projectRows(const DashboardFigures& figures) const;

    DashboardServices m_services;
    std::unique_ptr<Timer> m_tick;
};

/// The last seven days, from six days ago to today.
[[nodiscard]] std::vector<WeeklyDataPoint> weeklyData(const DashboardFigures& figures,
                                                      const Calendar& calendar, Date now);

/// The last three months, from two months ago to this one.
[[nodiscard]] std::vector<MonthlyRevenueDataPoint> monthlyRevenueData(const DashboardFigures& figures,
                                                                      const Calendar& calendar, Date now);

/// Hours as axis labels: 3h, 1h 30min, 45min; fractions of a minute are cut off.
[[nodiscard]] std::string formatHoursForAxis(double hours);

} // namespace brisklog
