#pragma once

#include <cmath>
#include <compare>
#include <cstdint>

namespace brisklog {

/// A length of time in seconds.
using TimeInterval = double;

inline constexpr TimeInterval secondsPerHour = 3600;

/// Seconds between 1970-01-01 and 2001-01-01, both 00:00:00 UTC.
inline constexpr TimeInterval secondsFromUnixEpochToReference = 978307200;

/// A point in time: seconds since 2001-01-01 00:00:00 UTC, including fractions. Our files hold it in this
/// form.
struct Date {
    TimeInterval secondsSinceReference = 0;

    [[nodiscard]] static constexpr Date fromSecondsSince1970(TimeInterval seconds) {
        return Date{seconds - secondsFromUnixEpochToReference};
    }

    /// Seconds since the Unix epoch, 1970-01-01 00:00:00 UTC.
    [[nodiscard]] constexpr TimeInterval secondsSince1970() const {
        return secondsSinceReference + secondsFromUnixEpochToReference;
    }

    /// Seconds from `earlier` to this date; negative when `earlier` is in fact later.
    [[nodiscard]] constexpr TimeInterval since(Date earlier) const {
        return secondsSinceReference - earlier.secondsSinceReference;
    }

    /// This date moved by a number of seconds. For days use `Calendar`: not every day has 86,400 seconds.
    [[nodiscard]] constexpr Date addingSeconds(TimeInterval seconds) const {
        return Date{secondsSinceReference + seconds};
    }

    constexpr auto operator<=>(const Date&) const = default;
};

/// Milliseconds since 1970-01-01 00:00:00 UTC, rounded.
[[nodiscard]] inline std::int64_t millisecondsSince1970(Date date) {
    return std::llround(date.secondsSince1970() * 1000);
}

} // namespace brisklog
