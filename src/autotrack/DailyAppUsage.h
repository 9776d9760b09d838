#pragma once

#include "foundation/Date.h"
#include "foundation/JsonCoding.h"
#include "foundation/SharedData.h"
#include "foundation/Uuid.h"

#include <map>
#include <optional>
#include <string>
#include <vector>

namespace brisklog {

/// One stretch of time in which one application stayed frontmost.
struct AppUsageSession {
    Uuid id;
    std::string appName;
    /// Determines whether the frontmost application has changed.
    std::string bundleIdentifier;
    Date startTime;
    /// Absent while the session is the current one.
    std::optional<Date> endTime;
    /// The application's icon as a PNG image; sessions with the same icon share its bytes.
    std::optional<SharedData> iconData;

    /// From its start to its end, or to `now` while it has none; negative when the clock was set back.
    [[nodiscard]] TimeInterval length(Date now) const { return endTime.value_or(now).since(startTime); }

    bool operator==(const AppUsageSession&) const = default;
};

constexpr auto jsonFields(std::type_identity<AppUsageSession>) {
    return std::tuple{json::field<&AppUsageSession::id>("id"),
                      json::field<&AppUsageSession::appName>("appName"),
                      json::field<&AppUsageSession::bundleIdentifier>("bundleIdentifier"),
                      json::field<&AppUsageSession::startTime>("startTime"),
                      json::field<&AppUsageSession::endTime>("endTime"),
                      json::field<&AppUsageSession::iconData>("iconData")};
}

/// The sessions that began on one calendar day.
struct DailyAppUsage {
    Uuid id;
    /// The day's first moment, in the time zone that applied when the record was made.
    Date date;
    /// In the order in which they were closed.
    std::vector<AppUsageSession> sessions;

    /// The sum of all session lengths; a session that is still open counts up to `now`.
    [[nodiscard]] TimeInterval totalDuration(Date now) const;

    /// The sessions by application name, each group in the order of the list. By name rather than identifier
    /// on purpose: applications with the same name are added up.
    [[nodiscard]] std::map<std::string, std::vector<AppUsageSession>> groupedByApp() const;

    /// The sum of the session lengths of each of these groups.
    [[nodiscard]] std::map<std::string, TimeInterval> durationByApp(Date now) const;

    bool operator==(const DailyAppUsage&) const = default;
};

/// "sessions" comes last, so that a new session changes only the end of an encoded day.
constexpr auto jsonFields(std::type_identity<DailyAppUsage>) {
    return std::tuple{json::field<&DailyAppUsage::id>("id"), json::field<&DailyAppUsage::date>("date"),
                      json::field<&DailyAppUsage::sessions>("sessions")};
}

} // namespace brisklog
