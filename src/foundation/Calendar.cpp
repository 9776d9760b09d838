#include "foundation/Calendar.h"

#include <cmath>

namespace brisklog {
namespace {

/// Dates farther away than this many seconds (three million years) are on no calendar day.
constexpr TimeInterval farthestMoment = 1e14;

Date dateOf(const QDateTime& moment) {
    return Date::fromSecondsSince1970(static_cast<double>(moment.toSecsSinceEpoch()));
}

} // namespace

Calendar::Calendar(const QTimeZone& zone, Qt::DayOfWeek firstWeekday)
    : m_zone(zone), m_firstWeekday(firstWeekday) {}

QDateTime Calendar::localTime(Date date) const {
    if (!(std::abs(date.secondsSinceReference) < farthestMoment))
        return {};
    // Truncated, not rounded: the last half second of a day still belongs to it.
    return QDateTime::fromSecsSinceEpoch(static_cast<qint64>(std::floor(date.secondsSince1970())), m_zone);
}

Date Calendar::momentOf(QDate day, QTime time) const {
    const QDateTime moment(day, time, m_zone);
    if (moment.isValid())
        return dateOf(moment);
    const QDateTime asUniversal(day, time, Qt::UTC);
    const int offsetBefore = m_zone.offsetFromUtc(asUniversal.addDays(-1));
    return dateOf(asUniversal.addSecs(-offsetBefore));
}

Date Calendar::firstMomentOf(QDate day) const {
    const QDateTime start = day.startOfDay(m_zone);
    // Where the clocks are put back to midnight, it occurs twice: the day begins with the first.
    const QDateTime justBefore = start.addMSecs(-1);
    if (justBefore.date() == day)
        return dateOf(QDateTime(day, QTime(0, 0), Qt::UTC).addSecs(-justBefore.offsetFromUtc()));
    return dateOf(start);
}

Date Calendar::addingDays(Date date, int days) const {
    // In an hour that the clocks repeat, the time of day alone would be ambiguous.
    return days == 0 ? date : moved(date, [days](QDate day) { return day.addDays(days); });
}

Date Calendar::addingMonths(Date date, int months) const {
    return months == 0 ? date : moved(date, [months](QDate day) { return day.addMonths(months); });
}

Date Calendar::moved(Date date, const std::function<QDate(QDate)>& move) const {
    const QDateTime before = localTime(date);
    // Not QDateTime::addDays, which lands one hour too late when the clocks skip the resulting time.
    return date.addingSeconds(momentOf(move(before.date()), before.time()).since(dateOf(before)));
}

Date Calendar::startOfMonth(Date date) const {
    const QDate day = localTime(date).date();
    return firstMomentOf(QDate(day.year(), day.month(), 1));
}

YearAndMonth Calendar::monthOf(Date date) const {
    const QDate day = localTime(date).date();
    return {.year = day.year(), .month = day.month()};
}

Day Calendar::dayOf(Date date) const {
    const QDate day = localTime(date).date();
    return {firstMomentOf(day), firstMomentOf(day.addDays(1))};
}

} // namespace brisklog
