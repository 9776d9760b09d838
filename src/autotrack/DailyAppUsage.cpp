#include "autotrack/DailyAppUsage.h"

namespace brisklog {

TimeInterval DailyAppUsage::totalDuration(Date now) const {
    TimeInterval total = 0;
    for (const AppUsageSession& session : sessions)
        total += session.length(now);
    return total;
}

std::map<std::string, std::vector<AppUsageSession>> DailyAppUsage::groupedByApp() const {
    std::map<std::string, std::vector<AppUsageSession>> groups;
    for (const AppUsageSession& session : sessions)
        groups[session.appName].push_back(session);
    return groups;
}

std::map<std::string, TimeInterval> DailyAppUsage::durationByApp(Date now) const {
    // Not computed from the groups, which would copy all sessions.
    std::map<std::string, TimeInterval> durations;
    for (const AppUsageSession& session : sessions)
        durations[session.appName] += session.length(now);
    return durations;
}

} // namespace brisklog
