#pragma once

#include "foundation/Date.h"

#include <string>
#include <string_view>

namespace brisklog {
class Calendar;
}

/// How the program writes dates, money and durations: always German (Germany), whatever the desktop's
/// language.
namespace brisklog::format {

/// The forms in which a date is written.
enum class DateForm {
    shortWithTime, ///< 15.11.26, 18:20:08
    shortDate,     ///< 15.11.26
    mediumDate,    ///< 15.11.2026
    longDate,      ///< 15. November 2026
    fullDate,      ///< Sonntag, 15. November 2026
    shortTime,     ///< 18:20
    weekday,       ///< So.
    month,         ///< Nov.
    monthAndYear,  ///< November 2026
    isoDay,        ///< 2026-11-15, for file names
};

/// The date in the calendar's time zone.
[[nodiscard]] std::string date(Date date, DateForm form, const Calendar& calendar);

/// Euros as 1.234,50 € (no-break space before the sign), rounded half to even; `fallback` when the amount is
/// not finite. An amount that rounds to zero has no minus sign.
[[nodiscard]] std::string money(double euros, std::string_view fallback);

/// Whole euros as 1.235 €, rounded half to even; `fallback` when the amount is not finite.
[[nodiscard]] std::string wholeMoney(double euros, std::string_view fallback);

/// Euros as 1234.50 €: two decimals, decimal point, ordinary space, no grouping; `fallback` when not finite.
[[nodiscard]] std::string plainMoney(double euros, std::string_view fallback);

/// Hours and minutes without zero units (1 h 30 min, 2 h, 0 min); fractions of a minute are cut off.
[[nodiscard]] std::string duration(TimeInterval seconds, std::string_view fallback);

/// Hours and minutes, both always written (1 h 0 min); fractions of a minute are cut off.
[[nodiscard]] std::string paddedDuration(TimeInterval seconds, std::string_view fallback);

/// Hours, minutes and seconds, all always written (0 h 0 min 59 s); fractions of a second are cut off.
[[nodiscard]] std::string paddedDurationWithSeconds(TimeInterval seconds, std::string_view fallback);

/// Hours, minutes and seconds with two digits each (00:05:07); hours beyond 99 take more digits.
[[nodiscard]] std::string runningDuration(TimeInterval seconds, std::string_view fallback);

} // namespace brisklog::format
