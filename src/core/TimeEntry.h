#pragma once

#include "foundation/Date.h"
#include "foundation/JsonCoding.h"
#include "foundation/Uuid.h"

#include <optional>
#include <string>

namespace brisklog {

class Calendar;

/// One block of recorded time.
struct TimeEntry {
    Uuid id;
    std::string taskName;
    Date startTime;
    /// Absent while the timer runs.
    std::optional<Date> endTime;
    std::optional<Uuid> projectId;
    std::optional<std::string> note;
    /// Euros per hour; overrides the project's rate.
    std::optional<double> hourlyRate;
    bool isInvoiced = false;

    /// Seconds from start to end, or to `now` while there is no end.
    [[nodiscard]] TimeInterval duration(Date now) const;

    /// Euros earned at the entry's own rate, otherwise at the given one; 0 without either.
    [[nodiscard]] double earnings(std::optional<double> projectRate, Date now) const;

    /// The earnings as 1.234,50 €; "--" without any rate.
    [[nodiscard]] std::string formattedEarnings(std::optional<double> projectRate, Date now) const;

    /// The start as 15.11.26, 18:20:08.
    [[nodiscard]] std::string formattedStart(const Calendar& calendar) const;

    /// The end as 15.11.26, 18:20:08; "--" while there is none.
    [[nodiscard]] std::string formattedEnd(const Calendar& calendar) const;

    bool operator==(const TimeEntry&) const = default;
};

constexpr auto jsonFields(std::type_identity<TimeEntry>) {
    return std::tuple{json::field<&TimeEntry::id>("id"),
                      json::field<&TimeEntry::taskName>("taskName"),
                      json::field<&TimeEntry::startTime>("startTime"),
                      json::field<&TimeEntry::endTime>("endTime"),
                      json::field<&TimeEntry::projectId>("projectId"),
                      json::field<&TimeEntry::note>("note"),
                      json::field<&TimeEntry::hourlyRate>("hourlyRate"),
                      json::field<&TimeEntry::isInvoiced>("isInvoiced")};
}

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
