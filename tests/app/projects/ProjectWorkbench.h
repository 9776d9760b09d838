#pragma once

#include "app/projects/MultiProjectView.h"
#include "support/FakeClock.h"
#include "support/FakeFrontmostApplication.h"
#include "support/MemoryUserDefaults.h"
#include "support/RecordingFiles.h"
#include "support/RecordingLog.h"
#include "support/TemporaryHome.h"
#include "support/VirtualRunLoop.h"

#include <algorithm>
#include <memory>
#include <string>

namespace brisklog::test {

/// The real store in a temporary home, with a clock that the test controls.
struct ProjectWorkbench {
    TemporaryHome home;
    FakeClock clock;
    VirtualRunLoop runLoop{clock};
    RecordingFiles files;
    RecordingLog log;
    MemoryUserDefaults userDefaults;
    FakeFrontmostApplication frontmost;
    TimeTrackingStore store{StorePlatform{files, userDefaults, clock, runLoop, log}};

    [[nodiscard]] ProjectServices services() { return {store, clock, runLoop, {}}; }

    [[nodiscard]] AutoTrackingPlatform tracking() {
        return {.frontmost = frontmost,
                .userDefaults = userDefaults,
                .clock = clock,
                .runLoop = runLoop,
                .log = log};
    }

    [[nodiscard]] const Project& project(std::size_t index) const { return store.projects.get().at(index); }

    /// A finished entry of that many hours, ending now.
    [[nodiscard]] TimeEntry entry(const std::string& taskName, double hours = 1) const {
        TimeEntry entry;
        entry.id = Uuid::generate();
        entry.taskName = taskName;
        entry.startTime = clock.now().addingSeconds(-3600 * hours);
        entry.endTime = clock.now();
        return entry;
    }

    /// How often the projects file was written.
    [[nodiscard]] std::ptrdiff_t projectSaves() const {
        return std::ranges::count(files.written, "projects.json");
    }
};

} // namespace brisklog::test
