#pragma once

#include "foundation/Date.h"

#include <QDateTime>
#include <QTimeZone>
#include <functional>

namespace brisklog {

/// A calendar day: from its first moment up to the next day's, which is not part of it.
struct Day {
    Date start;
    Date end;

    [[nodiscard]] constexpr bool contains(Date date) const { return start <= date && date < end; }

    bool operator==(const Day&) const = default;
};

/// A month of a year, both counted from 1; both 0 where no calendar reaches.
struct YearAndMonth {
    int year = 0;
    int month = 0;

    bool operator==(const YearAndMonth&) const = default;
};

/// Time as people in one place count it: its time zone, the day its weeks begin with, and arithmetic with
/// days, of which one may have 23 or 25 hours.
class Calendar {
public:
    explicit Calendar(const QTimeZone& zone, Qt::DayOfWeek firstWeekday = Qt::Monday);

    [[nodiscard]] Qt::DayOfWeek firstWeekday() const { return m_firstWeekday; }

    /// What clocks show at that moment, fractions of a second cut off; invalid where no calendar reaches.
    [[nodiscard]] QDateTime localTime(Date date) const;

    /// The moment when clocks show this, one of the two where they show it twice. Where they skip it, as much
    /// later as they skip.
    [[nodiscard]] Date momentOf(QDate day, QTime time) const;

    /// The same time of day a number of days later (earlier when negative); where the clocks skip that time,
    /// as much later as they skip.
    [[nodiscard]] Date addingDays(Date date, int days) const;

    /// The same time of day on the same day a number of months later (earlier when negative), on the month's
    /// last day where it has no such day.
    [[nodiscard]] Date addingMonths(Date date, int months) const;

    /// The first moment of the month in which the date lies.
    [[nodiscard]] Date startOfMonth(Date date) const;

    /// The day in which the moment lies. Where the clocks skip midnight it begins when they go on.
    [[nodiscard]] Day dayOf(Date date) const;

    /// The month in which the moment lies.
    [[nodiscard]] YearAndMonth monthOf(Date date) const;

    /// In which day of its month the moment lies, counted from 1.
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
