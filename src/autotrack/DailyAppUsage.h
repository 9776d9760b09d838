#pragma once

#include "autotrack/AppUsageSession.h"

#include <map>
#include <string>
#include <vector>

namespace brisklog {

/// The sessions that began on one calendar day.
struct DailyAppUsage {
    Uuid id;
    /// The day's first moment, in the time zone that held when the record was made.
    Date date;
    /// In the order in which they were closed.
    std::vector<AppUsageSession> sessions;

    /// All sessions' lengths together; one that is still open counts up to `now`.
    [[nodiscard]] TimeInterval totalDuration(Date now) const;

    /// The sessions by application name, each in the order of the list. Names, not identifiers, on purpose:
    /// applications of the same name are summed together.
    [[nodiscard]] std::map<std::string, std::vector<AppUsageSession>> groupedByApp() const;

    /// The lengths of each of these groups' sessions together.
    [[nodiscard]] std::map<std::string, TimeInterval> durationByApp(Date now) const;

    bool operator==(const DailyAppUsage&) const = default;
};

/// "sessions" stands last, so that a day that grows changes nothing but its end.
constexpr auto jsonFields(std::type_identity<DailyAppUsage>) {
    return std::tuple{json::field<&DailyAppUsage::id>("id"), json::field<&DailyAppUsage::date>("date"),
                      json::field<&DailyAppUsage::sessions>("sessions")};
}

} // namespace brisklog
