#include "foundation/Calendar.h"

#include <QDateTime>
#include <cmath>

namespace brisklog {
namespace {

constexpr double millisecondsPerSecond = 1000;
/// Beyond this many seconds (three million years) there are no months.
constexpr TimeInterval farthestMoment = 1e14;

/// The moment when clocks of the zone show this. Where they skip it, they are read as if not yet put forward.
qint64 momentOf(QDate day, QTime time, const QTimeZone& zone) {
    const QDateTime moment(day, time, zone);
    if (moment.isValid())
        return moment.toMSecsSinceEpoch();
    const QDateTime asUniversal(day, time, Qt::UTC);
    const int offsetBefore = zone.offsetFromUtc(asUniversal.addDays(-1));
    return asUniversal.addSecs(-offsetBefore).toMSecsSinceEpoch();
}

Date firstMomentOf(QDate day, const QTimeZone& zone) {
    qint64 moment = day.startOfDay(zone).toMSecsSinceEpoch();
    // Where the clocks are put back to midnight it comes twice: the day begins with the first.
    const QDateTime justBefore = QDateTime::fromMSecsSinceEpoch(moment - 1, zone);
    if (justBefore.date() == day)
        moment =
            QDateTime(day, QTime(0, 0), Qt::UTC).addSecs(-justBefore.offsetFromUtc()).toMSecsSinceEpoch();
    return Date::fromSecondsSince1970(static_cast<double>(moment) / millisecondsPerSecond);
}

} // namespace

Calendar::Calendar(const QTimeZone& zone) : m_zone(zone) {}

Calendar Calendar::current() { return Calendar(QTimeZone::systemTimeZone()); }

Date Calendar::addingDays(Date date, int days) const {
    // Within an hour that the clocks show twice the time of day alone would not tell which.
    return days == 0 ? date : moved(date, [days](QDate day) { return day.addDays(days); });
}

Date Calendar::addingMonths(Date date, int months) const {
    return months == 0 ? date : moved(date, [months](QDate day) { return day.addMonths(months); });
}

Date Calendar::moved(Date date, const std::function<QDate(QDate)>& move) const {
    const qint64 before = millisecondsSince1970(date);
    const QDateTime local = QDateTime::fromMSecsSinceEpoch(before, m_zone);
    // Not QDateTime::addDays: into an hour that the clocks skip it lands one hour too late.
    const qint64 after = momentOf(move(local.date()), local.time(), m_zone);
    const auto distance = static_cast<double>(after - before);
    return date.addingSeconds(distance / millisecondsPerSecond);
}

QDate Calendar::dayNumber(Date date) const {
    // Cut off, not rounded: the last half millisecond of a day is still in it.
    const auto milliseconds =
        static_cast<qint64>(std::floor(date.secondsSince1970() * millisecondsPerSecond));
    return QDateTime::fromMSecsSinceEpoch(milliseconds, m_zone).date();
}

int Calendar::dayNumberOf(Date date) const { return dayNumber(date).day(); }

Date Calendar::startOfMonth(Date date) const {
    const QDate day = dayNumber(date);
    return firstMomentOf(QDate(day.year(), day.month(), 1), m_zone);
}

YearAndMonth Calendar::monthOf(Date date) const {
    if (std::abs(date.secondsSinceReference) > farthestMoment)
        return {};
    const QDate day = dayNumber(date);
    return {.year = day.year(), .month = day.month()};
}

Day Calendar::dayOf(Date date) const {
    const QDate day = dayNumber(date);
    return {firstMomentOf(day, m_zone), firstMomentOf(day.addDays(1), m_zone)};
}

} // namespace brisklog
