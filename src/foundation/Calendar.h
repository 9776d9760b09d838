#pragma once

#include "foundation/Date.h"

#include <QDateTime>
#include <QTimeZone>
#include <functional>

namespace brisklog {

/// A calendar day: from its first moment up to, but not including, the next day's.
struct Day {
    Date start;
    Date end;

    [[nodiscard]] constexpr bool contains(Date date) const { return start <= date && date < end; }

    bool operator==(const Day&) const = default;
};

/// A month of a year, both counted from 1; both 0 beyond the range of the calendar.
struct YearAndMonth {
    int year = 0;
    int month = 0;

    bool operator==(const YearAndMonth&) const = default;
};

/// Civil time in one place: its time zone, the first day of its weeks, and arithmetic with days, some of
/// which have 23 or 25 hours.
class Calendar {
public:
    explicit Calendar(const QTimeZone& zone, Qt::DayOfWeek firstWeekday = Qt::Monday);

    [[nodiscard]] Qt::DayOfWeek firstWeekday() const { return m_firstWeekday; }

    /// The local time at that moment, fractions of a second truncated; invalid beyond the range of the
    /// calendar.
    [[nodiscard]] QDateTime localTime(Date date) const;

    /// The moment with this local time, one of the two if it occurs twice. A time that the clocks skip is
    /// moved later by the length of the gap.
    [[nodiscard]] Date momentOf(QDate day, QTime time) const;

    /// The same time of day a number of days later (earlier when negative); a time that the clocks skip is
    /// moved later by the length of the gap.
    [[nodiscard]] Date addingDays(Date date, int days) const;

    /// The same time of day on the same day a number of months later (earlier when negative); the month's
    /// last day if it has no such day.
    [[nodiscard]] Date addingMonths(Date date, int months) const;

    /// The first moment of the month that contains the date.
    [[nodiscard]] Date startOfMonth(Date date) const;

    /// The day that contains the moment. Where the clocks skip midnight, the day begins after the gap.
    [[nodiscard]] Day dayOf(Date date) const;

    /// The month that contains the moment.
    [[nodiscard]] YearAndMonth monthOf(Date date) const;

    /// The moment's day of the month, counted from 1.
    [[nodiscard]] int dayOfMonth(Date date) const { return localTime(date).date().day(); }

    bool operator==(const Calendar&) const = default;

private:
    [[nodiscard]] Date firstMomentOf(QDate day) const;
    /// The same time of day on another day.
    [[nodiscard]] Date moved(Date date, const std::function<QDate(QDate)>& move) const;

    QTimeZone m_zone;
    Qt::DayOfWeek m_firstWeekday;
};

} // namespace brisklog
