#include "TrackerFixture.h"

namespace brisklog::test {

std::vector<std::string> namesOf(const DailyAppUsage& day) {
    std::vector<std::string> names;
    for (const AppUsageSession& session : day.sessions)
        names.push_back(session.appName);
    return names;
}

} // namespace brisklog::test
