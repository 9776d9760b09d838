#pragma once

#include "core/TimeEntry.h"

#include <optional>
#include <string>

namespace brisklog {

/// What the row of one stored entry says.
struct ProjectEntryRow {
    /// The task's name on one line.
    std::string taskName;
    std::string start;
    /// "--" while the entry has no end.
    std::string end;
    /// Hours and minutes; up to `now` while the entry has no end.
    std::string duration;
    /// At the entry's own rate, else the project's; "--" without any.
    std::string earnings;

    bool operator==(const ProjectEntryRow&) const = default;
};

[[nodiscard]] ProjectEntryRow projectEntryRow(const TimeEntry& entry, std::optional<double> projectRate,
                                              const Calendar& calendar, Date now);

} // namespace brisklog
