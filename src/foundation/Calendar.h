#pragma once

#include "foundation/Date.h"

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

/// Arithmetic with days as people count them, in one time zone: a day may have 23 or 25 hours.
class Calendar {
public:
    explicit Calendar(const QTimeZone& zone);

    /// The calendar of the user's own time zone.
    [[nodiscard]] static Calendar current();

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

    /// The day of the month in which the moment lies, counted from 1.
    [[nodiscard]] int dayNumberOf(Date date) const;

    [[nodiscard]] const QTimeZone& zone() const { return m_zone; }

private:
    /// The same time of day on another day.
    [[nodiscard]] Date moved(Date date, const std::function<QDate(QDate)>& move) const;
    [[nodiscard]] QDate dayNumber(Date date) const;

    QTimeZone m_zone;
};

} // namespace brisklog
