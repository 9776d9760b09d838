#include "app/projects/ProjectEntryRow.h"

#include "foundation/GermanFormat.h"
#include "foundation/Text.h"

namespace brisklog {

ProjectEntryRow projectEntryRow(const TimeEntry& entry, std::optional<double> projectRate,
                                const Calendar& calendar, Date now) {
    return {.taskName = text::onOneLine(entry.taskName),
            .start = entry.formattedStart(calendar),
            .end = entry.formattedEnd(calendar),
            .duration = format::duration(entry.duration(now), "0h 0m"),
            .earnings = entry.formattedEarnings(projectRate, now)};
}

} // namespace brisklog
