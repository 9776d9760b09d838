#include "overview/DashboardView.h"

#include "foundation/GermanFormat.h"
#include "foundation/Text.h"

#include <algorithm>
#include <cmath>
#include <tuple>

namespace brisklog {
namespace {

constexpr TimeInterval refreshInterval = 30;
/// Beyond this many hours (a hundred million years) the axis shows no minutes.
constexpr double longestAxis = 1e12;

std::string formatDuration(TimeInterval seconds) { return format::paddedDuration(seconds, "00:00"); }

std::string formatCurrency(double euros) { return format::money(euros, "0,00 €"); }

std::string formatMoneyForAxis(const ChartScale& scale, double euros) {
    return scale.step < 1 ? formatCurrency(euros) : format::wholeMoney(euros, "0 €");
}

ActiveTimerRow timerRow(const Project& project, const ActiveEntryState& timer, const Calendar& calendar,
                        Date now) {
    return {.projectName = text::onOneLine(project.name),
            .taskName = text::onOneLine(timer.entry.taskName),
            .started =
                "Gestartet: " + format::date(timer.entry.startTime, format::DateForm::shortTime, calendar),
            .duration = format::runningDuration(timer.currentDuration(now), "00:00:00"),
            .isPaused = timer.isPaused};
}

template <class Point, class Describe>
std::vector<ChartBar> bars(const std::vector<Point>& points, Describe describe) {
    std::vector<ChartBar> result;
    std::ranges::transform(points, std::back_inserter(result), describe);
    return result;
}

template <class Describe>
std::vector<std::string> valueLabels(const ChartScale& scale, Describe describe) {
    std::vector<std::string> labels;
    std::ranges::transform(scale.lines(), std::back_inserter(labels), describe);
    return labels;
}

ChartContent weekChart(const std::vector<WeeklyDataPoint>& points) {
    ChartContent chart{.valueTitle = "Zeit", .labelTitle = "Tag", .scale = {}, .valueLabels = {}, .bars = {}};
    std::vector<double> hours;
    std::ranges::transform(points, std::back_inserter(hours), &WeeklyDataPoint::hours);
    chart.scale = hoursScale(hours);
    chart.valueLabels = valueLabels(chart.scale, formatHoursForAxis);
    chart.bars = bars(points, [](const WeeklyDataPoint& point) {
        return ChartBar{point.day, point.hours,
                        point.day + ": " + formatDuration(point.hours * secondsPerHour)};
    });
    return chart;
}

ChartContent revenueChart(const std::vector<MonthlyRevenueDataPoint>& points) {
    ChartContent chart{
        .valueTitle = "Umsatz", .labelTitle = "Monat", .scale = {}, .valueLabels = {}, .bars = {}};
    std::vector<double> revenues;
    std::ranges::transform(points, std::back_inserter(revenues), &MonthlyRevenueDataPoint::revenue);
    chart.scale = moneyScale(revenues);
    chart.valueLabels =
        valueLabels(chart.scale, [&chart](double euros) { return formatMoneyForAxis(chart.scale, euros); });
    chart.bars = bars(points, [](const MonthlyRevenueDataPoint& point) {
        return ChartBar{point.month, point.revenue, point.month + ": " + formatCurrency(point.revenue)};
    });
    return chart;
}

} // namespace

DashboardView::DashboardView(DashboardServices services)
    : refreshID(*this, Uuid::generate()), m_services(std::move(services)) {}

void DashboardView::appear() {
    m_tick = m_services.runLoop.repeatEvery(refreshInterval, [this] { refreshID = Uuid::generate(); });
}

void DashboardView::disappear() { m_tick.reset(); }

DashboardContent DashboardView::content() const {
    const Date now = m_services.clock.now();
    const Calendar calendar = m_services.clock.calendar();
    const DashboardFigures figures =
        dashboardFigures(m_services.store.projects, m_services.store.activeEntries, calendar, now);
    return {.currentDate = format::date(now, format::DateForm::fullDate, calendar),
            .todaysWork = formatDuration(figures.todaysWork),
            .totalWork = formatDuration(figures.totalWork),
            .projects = projectRows(figures),
            .totalEarnings = formatCurrency(figures.totalEarnings),
            .week = weekChart(weeklyData(figures, calendar, now)),
            .weeklyTotal = formatDuration(figures.weeklyTotal),
            // Always divided by seven, however many days had work: the average over the week, not over its
            // working days.
            .averagePerDay = formatDuration(figures.weeklyTotal / DashboardFigures::dayCount),
            .hasTimers = !m_services.store.activeEntries->empty(),
            .timers = timerRows(calendar, now),
            .revenue = revenueChart(monthlyRevenueData(figures, calendar, now)),
            .currentMonth = formatCurrency(figures.revenue.back())};
}

std::vector<ProjectOverviewRow> DashboardView::projectRows(const DashboardFigures& figures) const {
    std::vector<ProjectOverviewRow> rows;
    std::ranges::transform(m_services.store.projects.get(), figures.projects, std::back_inserter(rows),
                           [](const Project& project, const ProjectFigures& line) {
                               ProjectOverviewRow row{.name = text::onOneLine(project.name),
                                                      .workingTime = formatDuration(line.workingTime),
                                                      .earnings = {}};
                               if (line.earnings)
                                   row.earnings = formatCurrency(*line.earnings);
                               return row;
                           });
    return rows;
}

std::vector<ActiveTimerRow> DashboardView::timerRows(const Calendar& calendar, Date now) const {
    std::vector<const ActiveEntryState*> timers;
    for (const auto& [id, timer] : m_services.store.activeEntries.get())
        timers.push_back(&timer);
    std::ranges::sort(timers, {}, [](const ActiveEntryState* timer) {
        return std::tuple(timer->entry.startTime.secondsSinceReference, timer->id);
    });
    const std::vector<Project>& projects = m_services.store.projects;
    std::vector<ActiveTimerRow> rows;
    for (const ActiveEntryState* timer : timers) {
        const auto project = std::ranges::find(projects, timer->projectId, &Project::id);
        // A timer whose project was deleted keeps running without a row.
        if (project != projects.end())
            rows.push_back(timerRow(*project, *timer, calendar, now));
    }
    return rows;
}

std::vector<WeeklyDataPoint> weeklyData(const DashboardFigures& figures, const Calendar& calendar, Date now) {
    std::vector<WeeklyDataPoint> points;
    const auto days = dashboardDays(calendar, now);
    for (std::size_t i = 0; i < days.size(); ++i)
        points.push_back({Uuid::generate(), format::date(days[i], format::DateForm::weekday, calendar),
                          figures.hoursWorked[i]});
    return points;
}

std::vector<MonthlyRevenueDataPoint> monthlyRevenueData(const DashboardFigures& figures,
                                                        const Calendar& calendar, Date now) {
    std::vector<MonthlyRevenueDataPoint> points;
    const auto months = dashboardMonths(calendar, now);
    for (std::size_t i = 0; i < months.size(); ++i)
        points.push_back({Uuid::generate(), format::date(months[i], format::DateForm::month, calendar),
                          figures.revenue[i]});
    return points;
}

std::string formatHoursForAxis(double hours) {
    if (!std::isfinite(hours) || std::abs(hours) > longestAxis)
        return "";
    if (hours < 1)
        return std::to_string(static_cast<long long>(hours * 60)) + "min";
    const auto whole = static_cast<long long>(hours);
    const auto minutes = static_cast<long long>((hours - static_cast<double>(whole)) * 60);
    const std::string text = std::to_string(whole) + "h";
    return minutes < 1 ? text : text + " " + std::to_string(minutes) + "min";
}

} // namespace brisklog
