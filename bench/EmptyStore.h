#pragma once

#include "bench/IdlePlatform.h"
#include "core/TimeTrackingStore.h"
#include "platform/defaults/SqliteUserDefaults.h"
#include "platform/files/PosixFiles.h"
#include "platform/loop/SystemClock.h"

#include <cstdlib>
#include <filesystem>
#include <string>
#include <unistd.h>

namespace brisklog::bench {

/// A store without records, in a home of its own that goes with it. HOME points there.
struct EmptyStore {
    EmptyStore() = default;

    ~EmptyStore() { std::filesystem::remove_all(home); }

    EmptyStore(const EmptyStore&) = delete;
    EmptyStore& operator=(const EmptyStore&) = delete;

    static std::filesystem::path makeHome() {
        std::string name = std::filesystem::temp_directory_path() / "brisklog-bench-XXXXXX";
        std::filesystem::path path = ::mkdtemp(name.data());
        ::setenv("HOME", path.c_str(), 1);
        return path;
    }

    std::filesystem::path home = makeHome();
    PosixFiles files;
    SystemClock clock;
    SilentLog log;
    IdleRunLoop runLoop;
    SqliteUserDefaults userDefaults{std::nullopt, clock, log};
    TimeTrackingStore store{{files, userDefaults, clock, runLoop, log}};
};

} // namespace brisklog::bench
