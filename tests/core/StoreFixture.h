#pragma once

#include "core/TimeTrackingStore.h"
#include "platform/defaults/SqliteUserDefaults.h"
#include "support/RecordingFiles.h"
#include "support/RecordingLog.h"
#include "support/TemporaryHome.h"
#include "support/VirtualRunLoop.h"

#include <gtest/gtest.h>
#include <memory>

namespace brisklog::test {

/// A home on disk with real files and a real user-defaults database, and the store over them.
class StoreTest : public testing::Test {
protected:
    using Lines = std::vector<std::string>;
    using Names = std::vector<std::string>;

    [[nodiscard]] StorePlatform platform() { return {files, defaults, clock, runLoop, log}; }

    [[nodiscard]] std::unique_ptr<TimeTrackingStore> start() {
        return std::make_unique<TimeTrackingStore>(platform());
    }

    /// Starts, then forgets what was printed and written so far.
    [[nodiscard]] std::unique_ptr<TimeTrackingStore> startQuietly() {
        auto store = start();
        log.lines.clear();
        files.written.clear();
        return store;
    }

    [[nodiscard]] std::filesystem::path file(const char* name) const { return home.documents() / name; }

    /// Names of everything in the documents folder, sorted.
    [[nodiscard]] Names documents() const {
        Names names;
        if (std::filesystem::exists(home.documents()))
            for (const auto& entry : std::filesystem::directory_iterator(home.documents()))
                names.push_back(entry.path().filename());
        std::ranges::sort(names);
        return names;
    }

    /// The printed lines without those of the clean-up.
    [[nodiscard]] Lines otherLines() const {
        Lines lines = log.lines;
        std::erase_if(lines, [](const std::string& line) {
            return line.starts_with("Bereinige UserDefaults") ||
                   line.starts_with("UserDefaults-Bereinigung") || line.starts_with("Removing ");
        });
        return lines;
    }

    static TimeEntry entryFrom(double start, double end) {
        TimeEntry entry;
        entry.id = Uuid::generate();
        entry.taskName = "Arbeit";
        entry.startTime = Date{start};
        entry.endTime = Date{end};
        return entry;
    }

    static Customer customerNamed(const std::string& name) {
        Customer customer;
        customer.id = Uuid::generate();
        customer.name = name;
        return customer;
    }

    static Names projectNames(const TimeTrackingStore& store) {
        Names names;
        for (const Project& project : store.projects.get())
            names.push_back(project.name);
        return names;
    }

    TemporaryHome home;
    RecordingFiles files;
    FakeClock clock;
    VirtualRunLoop runLoop{clock};
    RecordingLog log;
    SqliteUserDefaults defaults{home.configuration() / "defaults.db", clock, log};
};

} // namespace brisklog::test
