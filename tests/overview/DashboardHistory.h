#pragma once

#include "foundation/Calendar.h"
#include "overview/DashboardFigures.h"

#include <QDateTime>

namespace brisklog::test {

/// A moment as the clocks of the zone show it.
inline Date momentIn(const Calendar& calendar, const char* isoTime) {
    QDateTime local = QDateTime::fromString(QString::fromUtf8(isoTime), Qt::ISODate);
    local.setTimeZone(calendar.zone());
    return Date::fromSecondsSince1970(static_cast<double>(local.toSecsSinceEpoch()));
}

inline TimeEntry entryBetween(Date start, std::optional<Date> end) {
    TimeEntry entry;
    entry.id = Uuid::generate();
    entry.taskName = "Arbeit";
    entry.startTime = start;
    entry.endTime = end;
    return entry;
}

inline ActiveEntryState timerFrom(Date start, const Uuid& projectId) {
    ActiveEntryState timer;
    timer.entry = entryBetween(start, {});
    timer.id = timer.entry.id;
    timer.projectId = projectId;
    return timer;
}

inline Project projectWith(std::optional<double> rate, std::vector<TimeEntry> entries = {}) {
    return {.id = Uuid::generate(), .name = "Projekt", .hourlyRate = rate, .entries = std::move(entries)};
}

} // namespace brisklog::test
