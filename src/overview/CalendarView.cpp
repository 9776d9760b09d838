#include "overview/CalendarView.h"

#include "foundation/GermanFormat.h"

#include <QDate>
#include <QDateTime>
#include <algorithm>
#include <cmath>

namespace brisklog {
namespace {

constexpr int daysPerWeek = CalendarView::columns;

/// Where a month's days go in the grid.
struct MonthGrid {
    QDate first;
    /// How many days of the previous month are in the first row.
    int offset;
};

MonthGrid gridOf(const YearAndMonth& month, Qt::DayOfWeek firstWeekday) {
    const QDate first(month.year, month.month, 1);
    return {first, (first.dayOfWeek() - firstWeekday + daysPerWeek) % daysPerWeek};
}

/// 2026-11-15 09:41:00 +0000
std::string description(Date date) {
    const auto seconds = static_cast<qint64>(std::floor(date.secondsSince1970()));
    return QDateTime::fromSecsSinceEpoch(seconds, Qt::UTC)
        .toString(QStringLiteral("yyyy-MM-dd HH:mm:ss '+0000'"))
        .toStdString();
}

} // namespace

CalendarView::CalendarView(CalendarServices services)
    : currentMonth(*this, services.clock.now()), m_services(std::move(services)) {}

std::string CalendarView::monthTitle() const {
    return format::date(currentMonth, format::DateForm::monthAndYear, m_services.clock.calendar());
}

std::string CalendarView::columnHeading(int column) const {
    const Calendar calendar = m_services.clock.calendar();
    // The second row: all of its days belong to this month.
    const auto date = dateAt(1, column, calendar);
    return date ? format::date(*date, format::DateForm::weekday, calendar) : std::string();
}

std::optional<Date> CalendarView::getDate(int row, int column) const {
    return dateAt(row, column, m_services.clock.calendar());
}

std::optional<Date> CalendarView::dateAt(int row, int column, const Calendar& calendar) const {
    const MonthGrid grid = gridOf(calendar.monthOf(currentMonth), calendar.firstWeekday());
    const int day = row * columns + column - grid.offset + 1;
    const QDate wanted = grid.first.addDays(day - 1);
    Date start = calendar.startOfMonth(currentMonth);
    if (day < 1)
        start = calendar.startOfMonth(calendar.addingMonths(start, -1));
    else if (day > grid.first.daysInMonth())
        start = calendar.startOfMonth(calendar.addingMonths(start, 1));
    const Date date = calendar.addingDays(start, wanted.day() - 1);
    // A zone that crossed the date line skipped a day, for which the calendar yields the next one.
    return calendar.dayOfMonth(date) == wanted.day() ? std::optional(date) : std::nullopt;
}

std::vector<std::optional<CalendarCell>> CalendarView::cells() const {
    const Calendar calendar = m_services.clock.calendar();
    std::vector<std::optional<CalendarCell>> cells;
    for (int row = 0; row < rows; ++row)
        for (int column = 0; column < columns; ++column) {
            const auto date = dateAt(row, column, calendar);
            cells.push_back(date ? std::optional(cellOf(*date, calendar)) : std::nullopt);
        }
    return cells;
}

CalendarCell CalendarView::cellOf(Date date, const Calendar& calendar) const {
    const Day day = calendar.dayOf(date);
    const bool hasData = usageOn(day) != nullptr;
    return {.date = date,
            .dayOfMonth = std::to_string(calendar.dayOfMonth(date)),
            .isOfMonth = calendar.monthOf(date) == calendar.monthOf(currentMonth),
            .isToday = day.contains(m_services.clock.now()),
            .isSelected = isSelected(day),
            .hasData = hasData,
            .name =
                format::date(date, format::DateForm::longDate, calendar) + (hasData ? ", mit Daten" : "")};
}

bool CalendarView::isSelected(const Day& day) const {
    const std::optional<Date>& selected = selectedDate;
    return selected && day.contains(*selected);
}

bool CalendarView::hasDataForDate(Date date) const {
    return usageOn(m_services.clock.calendar().dayOf(date)) != nullptr;
}

const DailyAppUsage* CalendarView::usageOn(const Day& day) const {
    const std::vector<DailyAppUsage>& days = m_services.autoTrackingManager.dailyUsageData;
    const auto found = std::ranges::find_if(
        days, [&day](Date date) { return day.contains(date); }, &DailyAppUsage::date);
    return found == days.end() ? nullptr : &*found;
}

void CalendarView::selectDate(Date date) {
    selectedDate = date;
    if (const DailyAppUsage* const usage = usageOn(m_services.clock.calendar().dayOf(date)))
        openDetailWindow(*usage, date);
}

void CalendarView::openDetailWindow(const DailyAppUsage& usage, Date selected) {
    const DetailWindowContent content{.title = "App-Nutzung: " + formatDate(usage.date),
                                      .detail = DailyUsageDetailView(usage, m_services.clock.now())};
    auto delegate = std::make_shared<DetailWindowDelegate>();
    auto controller = m_services.showDetailWindow(content, delegate);
    m_services.detailWindows.registerWindow(std::move(controller), std::move(delegate),
                                            description(selected));
}

void CalendarView::showPreviousMonth() {
    currentMonth = m_services.clock.calendar().addingMonths(currentMonth, -1);
}

void CalendarView::showNextMonth() {
    currentMonth = m_services.clock.calendar().addingMonths(currentMonth, 1);
}

std::string CalendarView::formatDate(Date date) const {
    return format::date(date, format::DateForm::mediumDate, m_services.clock.calendar());
}

} // namespace brisklog
