#include "core/Project.h"

#include <numeric>

namespace brisklog {

TimeInterval Project::totalDuration(Date now) const {
    return std::accumulate(
        entries.begin(), entries.end(), TimeInterval{0},
        [now](TimeInterval sum, const TimeEntry& entry) { return sum + entry.duration(now); });
}

} // namespace brisklog
