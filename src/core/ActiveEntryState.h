#pragma once

#include "core/TimeEntry.h"

namespace brisklog {

/// One running or paused timer; lives in memory only.
struct ActiveEntryState {
    /// Equal to `entry.id`.
    Uuid id;
    /// The entry being recorded, without an end.
    TimeEntry entry;
    bool isPaused = false;
    std::optional<Date> pauseStartTime;
    /// Seconds of the pauses that have ended.
    TimeInterval totalPauseDuration = 0;
    Uuid projectId;

    /// Seconds shown for the timer: from its start to now, standing still while paused. Pauses that have
    /// ended are deliberately not deducted, so after resuming the shown time jumps up by the length of the
    /// pause.
    [[nodiscard]] TimeInterval currentDuration(Date now) const {
        const TimeInterval pause = isPaused && pauseStartTime ? now.since(*pauseStartTime) : 0;
        return entry.duration(now) - pause;
    }

    bool operator==(const ActiveEntryState&) const = default;
};

} // namespace brisklog
