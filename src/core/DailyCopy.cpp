#include "core/DailyCopy.h"

#include "foundation/Calendar.h"
#include "foundation/GermanFormat.h"

#include <algorithm>

namespace brisklog {
namespace {

constexpr std::size_t daysKept = 14;

/// Whether it has the form 2026-11-15; we remove nothing else from the folder.
bool isDay(std::string_view name) {
    constexpr std::string_view form = "dddd-dd-dd";
    return std::ranges::equal(name, form, [](char character, char wanted) {
        return wanted == 'd' ? character >= '0' && character <= '9' : character == wanted;
    });
}

Result<Done> copy(Files& files, const std::filesystem::path& from, const std::filesystem::path& to) {
    const auto bytes = files.read(from);
    return bytes.failed() ? bytes.error() : files.replace(to, bytes.value(), Durability::leftToSystem);
}

Result<Done> removeOldDays(Files& files, const std::filesystem::path& backups) {
    auto days = files.namesIn(backups);
    std::erase_if(days, [](const std::string& name) { return !isDay(name); });
    std::ranges::sort(days, std::greater());
    for (std::size_t i = daysKept; i < days.size(); ++i)
        if (auto removed = files.removeFolder(backups / days[i]); removed.failed())
            return removed;
    return Done{};
}

} // namespace

void keepDailyCopy(Files& files, Log& log, const Clock& clock, const std::filesystem::path& file) {
    const auto state = files.stateFolder();
    if (!state)
        return;
    const auto backups = *state / "backups";
    const std::string today = format::date(clock.now(), format::DateForm::isoDay, clock.calendar());
    const auto target = backups / today / file.filename();
    if (files.exists(target))
        return;
    auto kept = copy(files, file, target);
    if (kept.succeeded())
        kept = removeOldDays(files, backups);
    if (kept.failed())
        log.print("Error keeping daily copy: " + kept.error().description);
}

} // namespace brisklog
