// projects.json, and the texts that screens and documents derive from it.

#include "RoundTrip.h"

#include "core/Project.h"
#include "foundation/Calendar.h"
#include "foundation/GermanFormat.h"

#include <algorithm>

namespace brisklog::fuzz {
namespace {

constexpr Date now{816426000};
const Calendar calendar(QTimeZone("Europe/Berlin"));

/// Projects compare by identity alone, which is not enough here.
bool haveSameContent(const std::vector<Project>& some, const std::vector<Project>& others) {
    return std::ranges::equal(some, others, [](const Project& one, const Project& other) {
        return one.id == other.id && one.name == other.name && one.hourlyRate == other.hourlyRate &&
               one.entries == other.entries;
    });
}

void show(const TimeEntry& entry, std::optional<double> projectRate) {
    requireShowable(entry.formattedEarnings(projectRate, now));
    requireShowable(entry.formattedStart(calendar));
    requireShowable(entry.formattedEnd(calendar));
}

void show(TimeInterval seconds) {
    constexpr std::string_view fallback = "--";
    requireShowable(format::duration(seconds, fallback));
    requireShowable(format::paddedDuration(seconds, fallback));
    requireShowable(format::paddedDurationWithSeconds(seconds, fallback));
    requireShowable(format::runningDuration(seconds, fallback));
}

} // namespace

void tryInput(std::string_view bytes) {
    const auto projects = roundTripped<std::vector<Project>>(bytes, json::Layout::pretty, haveSameContent);
    if (!projects)
        return;
    for (const Project& project : *projects) {
        for (const TimeEntry& entry : project.entries)
            show(entry, project.hourlyRate);
        show(project.totalDuration(now));
    }
}

} // namespace brisklog::fuzz
