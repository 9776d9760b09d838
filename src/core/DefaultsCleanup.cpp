#include "core/DefaultsCleanup.h"

#include <array>
#include <string>

namespace brisklog {
namespace {

bool alreadyDone = false;

constexpr std::array oldKeys{"timeProjects",  "timeCustomers", "profile_logoData",
                             "activeEntries", "savedNotes",    "profile_data"};

/// Data of more bytes than this is an oversized stray.
constexpr std::size_t largestKeptData = 100000;

/// Recorded days are deleted only by the user, however many there are.
constexpr std::string_view trackersHistory = "autoTrackingData";

bool isOversizedStray(const UserDefaults::Entry& entry) {
    const std::string_view key = entry.key;
    const bool hasOldName = key.starts_with("profile_") || key.starts_with("time") ||
                            key.find("Data") != key.npos || key.find("Entries") != key.npos;
    return hasOldName && key != trackersHistory && entry.type == UserDefaults::Type::data &&
           entry.size > largestKeptData;
}

} // namespace

void cleanupUserDefaults(UserDefaults& userDefaults, Log& log) {
    if (alreadyDone)
        return;
    log.print("Bereinige UserDefaults von großen Daten...");
    for (const char* const key : oldKeys) {
        if (!userDefaults.value(key))
            continue;
        log.print(std::string("Removing potentially large data from UserDefaults: ") + key);
        userDefaults.removeValue(key);
    }
    for (const UserDefaults::Entry& entry : userDefaults.entries()) {
        if (!isOversizedStray(entry))
            continue;
        log.print("Removing large data (" + std::to_string(entry.size) +
                  " bytes) from UserDefaults: " + entry.key);
        userDefaults.removeValue(entry.key);
    }
    userDefaults.synchronise();
    alreadyDone = true;
    log.print("UserDefaults-Bereinigung abgeschlossen");
}

} // namespace brisklog
