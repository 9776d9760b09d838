#pragma once

#include "foundation/Calendar.h"
#include "platform/Clock.h"

namespace brisklog::test {

inline constexpr TimeInterval hour = secondsPerHour;
/// The length of most days.
inline constexpr TimeInterval fullDay = 24 * hour;

/// A clock that stands still until it is set. It starts at 15 November 2026, 09:00:00 UTC, in the UTC time
/// zone.
class FakeClock final : public Clock {
public:
    [[nodiscard]] Date now() const override { return m_now; }

    [[nodiscard]] Calendar calendar() const override { return m_calendar; }

    void set(Date now) { m_now = now; }

    void advance(TimeInterval seconds) { m_now = m_now.addingSeconds(seconds); }

    /// As when the user travels.
    void setCalendar(const Calendar& calendar) { m_calendar = calendar; }

    void setZone(const char* zone) { m_calendar = Calendar(QTimeZone(zone)); }

private:
    Date m_now{816426000};
    Calendar m_calendar{QTimeZone::utc()};
};

/// The moment at which clocks in the zone show this ("2026-11-15T09:00:00").
[[nodiscard]] inline Date momentIn(const char* zone, const char* isoTime) {
    QDateTime local = QDateTime::fromString(QString::fromUtf8(isoTime), Qt::ISODate);
    local.setTimeZone(QTimeZone(zone));
    return Date::fromSecondsSince1970(static_cast<double>(local.toSecsSinceEpoch()));
}

} // namespace brisklog::test
