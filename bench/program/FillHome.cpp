// Gives an empty home a past, through the program's own storage.
// usage: brisklog-bench-fill-home ENTRIES SESSIONS    (the home is $HOME with its folders)

#include "autotrack/UsageHistoryStorage.h"
#include "bench/Histories.h"
#include "core/TimeTrackingStore.h"
#include "platform/defaults/SqliteUserDefaults.h"
#include "platform/files/PosixFiles.h"
#include "platform/files/Process.h"
#include "platform/loop/SystemClock.h"

#include <cstdlib>
#include <string>

namespace {

using namespace brisklog;

bool fillProjects(std::int64_t entryCount) {
    PosixFiles files;
    const JsonFile<std::vector<Project>> file{*files.documentsFolder() / "projects.json",
                                              json::Layout::pretty, Durability::throughToMedium};
    return files.createFolder(*files.documentsFolder()).succeeded() &&
           file.save(files, bench::workHistory(entryCount)).succeeded();
}

bool fillUsage(std::int64_t sessionCount) {
    StandardOutputLog log;
    const SystemClock clock;
    SqliteUserDefaults userDefaults(*PosixFiles::configurationFolder() / "defaults.sqlite", clock, log);
    userDefaults.setValue("autoTrackingEnabled", true);
    SharedDataPool icons;
    return UsageHistoryStorage(userDefaults, clock, icons)
        .save(bench::usageHistory(sessionCount), 0)
        .succeeded();
}

} // namespace

int main(int argumentCount, char** arguments) {
    if (argumentCount != 3)
        return EXIT_FAILURE;
    const std::int64_t entries = std::stoll(arguments[1]);
    const std::int64_t sessions = std::stoll(arguments[2]);
    const bool filled = (entries == 0 || fillProjects(entries)) && (sessions == 0 || fillUsage(sessions));
    return filled ? EXIT_SUCCESS : EXIT_FAILURE;
}
