#pragma once

#include "foundation/Date.h"
#include "foundation/JsonCoding.h"
#include "foundation/SharedData.h"
#include "foundation/Uuid.h"

#include <optional>
#include <string>

namespace brisklog {

/// One stretch of time in which one application stayed frontmost.
struct AppUsageSession {
    Uuid id;
    std::string appName;
    /// Decides whether the frontmost application changed.
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

} // namespace brisklog
