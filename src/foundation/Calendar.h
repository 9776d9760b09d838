#pragma once

#include "foundation/Date.h"

#include <QTimeZone>

namespace brisklog {

/// Arithmetic with days as people count them, in one time zone: a day may have 23 or 25 hours.
class Calendar {
public:
    explicit Calendar(QTimeZone zone);

    /// The calendar of the user's own time zone.
    [[nodiscard]] static Calendar current();

    /// The same time of day a number of days later (earlier when negative); where the clocks skip that time,
    /// as much later as they skip.
    [[nodiscard]] Date addingDays(Date date, int days) const;

    [[nodiscard]] const QTimeZone& zone() const { return m_zone; }

private:
    QTimeZone m_zone;
};

} // namespace brisklog
