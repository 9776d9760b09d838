#include "overview/DashboardFigures.h"

#include <algorithm>

namespace brisklog {
namespace {

/// What the figures need to know about an entry or a timer.
struct Work {
    Date start;
    Date end;
    TimeInterval length;
};

/// A half-open interval: `end` is not part of it.
struct Period {
    Date start;
    Date end;

    [[nodiscard]] bool holds(const Work& work) const { return work.start >= start && work.end < end; }

    [[nodiscard]] bool holdsStartOf(const Work& work) const {
        return work.start >= start && work.start < end;
    }
};

/// Accumulates the figures entry by entry; every boundary is computed only once.
class FigureAccumulator {
public:
    FigureAccumulator(const Calendar& calendar, Date now) : m_now(now), m_today(calendar.dayOf(now)) {
        m_weekStart = calendar.addingDays(m_today.start, 1 - static_cast<int>(DashboardFigures::dayCount));
        const auto days = dashboardDays(calendar, now);
        std::ranges::transform(days, m_days.begin(), [&calendar](Date date) {
            const Date start = calendar.dayOf(date).start;
            return Period{start, calendar.addingDays(start, 1)};
        });
        const auto months = dashboardMonths(calendar, now);
        std::ranges::transform(months, m_months.begin(), [&calendar](Date date) {
            const Date start = calendar.startOfMonth(date);
            return Period{start, calendar.addingMonths(start, 1)};
        });
        m_oldest = std::min({m_weekStart, m_days.front().start, m_months.front().start});
    }

    void addProject(const Project& project) {
        TimeInterval total = 0;
        for (const TimeEntry& entry : project.entries) {
            const Work work{entry.startTime, entry.endTime.value_or(m_now), entry.duration(m_now)};
            total += work.length;
            figures.totalWork += work.length;
            // Most of a long history is older than any figure that depends on dates.
            if (work.start >= m_oldest)
                addRecent(work, project.hourlyRate);
        }
        ProjectFigures line{.workingTime = total, .earnings = {}};
        if (project.hourlyRate) {
            line.earnings = *project.hourlyRate * (total / secondsPerHour);
            figures.totalEarnings += *line.earnings;
        }
        figures.projects.push_back(line);
    }

    void addTimer(const ActiveEntryState& timer) {
        const Work work{timer.entry.startTime, m_now, timer.currentDuration(m_now)};
        figures.totalWork += work.length;
        addByStart(work);
        for (std::size_t i = 0; i < m_days.size(); ++i)
            if (m_days[i].holdsStartOf(work))
                figures.hoursWorked[i] += work.length;
    }

    /// Converts the days, summed in seconds, to hours.
    void finish() {
        for (double& hours : figures.hoursWorked)
            hours /= secondsPerHour;
    }

    DashboardFigures figures;

private:
    void addByStart(const Work& work) {
        if (m_today.contains(work.start))
            figures.todaysWork += work.length;
        if (work.start >= m_weekStart)
            figures.weeklyTotal += work.length;
    }

    void addRecent(const Work& work, std::optional<double> rate) {
        addByStart(work);
        for (std::size_t i = 0; i < m_days.size(); ++i)
            if (m_days[i].holds(work))
                figures.hoursWorked[i] += work.length;
        if (!rate)
            return;
        for (std::size_t i = 0; i < m_months.size(); ++i)
            if (m_months[i].holds(work))
                figures.revenue[i] += *rate * (work.length / secondsPerHour);
    }

    Date m_now;
    Day m_today;
    Date m_weekStart;
    Date m_oldest;
    std::array<Period, DashboardFigures::dayCount> m_days;
    std::array<Period, DashboardFigures::monthCount> m_months;
};

} // namespace

std::array<Date, DashboardFigures::dayCount> dashboardDays(const Calendar& calendar, Date now) {
    std::array<Date, DashboardFigures::dayCount> days;
    for (std::size_t i = 0; i < days.size(); ++i)
        days[i] = calendar.addingDays(now, static_cast<int>(i) + 1 - static_cast<int>(days.size()));
    return days;
}

std::array<Date, DashboardFigures::monthCount> dashboardMonths(const Calendar& calendar, Date now) {
    std::array<Date, DashboardFigures::monthCount> months;
    for (std::size_t i = 0; i < months.size(); ++i)
        months[i] = calendar.addingMonths(now, static_cast<int>(i) + 1 - static_cast<int>(months.size()));
    return months;
}

DashboardFigures dashboardFigures(const std::vector<Project>& projects,
                                  const TimeTrackingStore::ActiveEntries& timers, const Calendar& calendar,
                                  Date now) {
    FigureAccumulator accumulator(calendar, now);
    for (const Project& project : projects)
        accumulator.addProject(project);
    for (const auto& [id, timer] : timers)
        accumulator.addTimer(timer);
    // Where several projects share an id, the timer counts for each of them.
    for (std::size_t i = 0; i < projects.size(); ++i)
        for (const auto& [id, timer] : timers)
            if (timer.projectId == projects[i].id)
                accumulator.figures.projects[i].workingTime += timer.currentDuration(now);
    accumulator.finish();
    return std::move(accumulator.figures);
}

} // namespace brisklog
