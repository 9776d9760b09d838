// What a long record of used applications costs: 100,000 sessions of 40 applications, each with an icon of
// 4 KB, are 570 MB as one value. Each figure is compared with the plain way in the same run, which encodes
// and writes everything anew and reads everything at once.
// change of application  at most 1 ms and 64 KiB written,
// start                  at most 400 ms and 40 MB more than with nothing on record,
// on disk                at most 40 MB.

#include "autotrack/AutoTrackingManager.h"
#include "bench/Histories.h"
#include "bench/IdlePlatform.h"
#include "foundation/Calendar.h"
#include "platform/defaults/SqliteUserDefaults.h"
#include "platform/files/PosixFiles.h"

#include <benchmark/benchmark.h>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <malloc.h>
#include <sys/wait.h>
#include <unistd.h>

namespace brisklog {
namespace {

using namespace bench;
namespace fs = std::filesystem;

class ManualClock final : public Clock {
public:
    [[nodiscard]] Date now() const override { return moment; }

    [[nodiscard]] Calendar calendar() const override { return Calendar(QTimeZone("Europe/Berlin")); }

    Date moment = firstDay;
};

/// Keeps the last timer's action to be called by hand.
class ManualRunLoop final : public RunLoop {
public:
    std::unique_ptr<Timer> repeatEvery(TimeInterval, std::function<void()> repeated) override {
        action = std::move(repeated);
        return nullptr;
    }

    std::unique_ptr<Timer> runAfter(TimeInterval, std::function<void()>) override { return nullptr; }

    std::function<void()> action;
};

class AlternatingDesktop final : public FrontmostApplication {
public:
    [[nodiscard]] Availability availability() const override { return Availability::available; }

    void beginWatching() override {}

    void endWatching() override {}

    [[nodiscard]] std::optional<DesktopApplication> current() override {
        return DesktopApplication{applicationName(application), applicationIdentifier(application)};
    }

    [[nodiscard]] std::optional<std::string> iconPng(const DesktopApplication&) override {
        return applicationIcon(application);
    }

    int application = 0;
};

/// A machine with that many sessions on record, in a temporary folder.
struct Machine {
    explicit Machine(std::int64_t sessionCount) {
        std::string name = fs::temp_directory_path() / "brisklog-bench-XXXXXX";
        folder = ::mkdtemp(name.data());
        file = folder / "defaults.sqlite";
        SqliteUserDefaults userDefaults(file, clock, log);
        userDefaults.setValue("autoTrackingEnabled", true);
        SharedDataPool icons;
        const auto days = usageHistory(sessionCount);
        if (UsageHistoryStorage(userDefaults, clock, icons).save(days, 0).failed())
            std::abort();
        if (!days.empty())
            clock.moment = days.back().sessions.back().endTime.value();
    }

    Machine(const Machine&) = delete;
    Machine& operator=(const Machine&) = delete;

    ~Machine() { fs::remove_all(folder); }

    [[nodiscard]] AutoTrackingPlatform platform(LargeValueStore& userDefaults) {
        return {.frontmost = desktop,
                .userDefaults = userDefaults,
                .clock = clock,
                .runLoop = runLoop,
                .log = log};
    }

    fs::path folder;
    fs::path file;
    ManualClock clock;
    ManualRunLoop runLoop;
    AlternatingDesktop desktop;
    SilentLog log;
};

/// A figure that the system keeps about this process, in the file's own unit.
double ownFigure(const char* file, const std::string& name) {
    std::ifstream stream(file);
    double value = 0;
    for (std::string word; stream >> word;)
        if (word == name + ":")
            stream >> value;
    return value;
}

double bytesWritten() { return ownFigure("/proc/self/io", "wchar"); }

double megabytesInUse() { return ownFigure("/proc/self/status", "VmRSS") / 1024; }

double mostMegabytesInUse() { return ownFigure("/proc/self/status", "VmHWM") / 1024; }

// Change of application

void changeApplication(benchmark::State& state) {
    Machine machine(state.range(0));
    SqliteUserDefaults userDefaults(machine.file, machine.clock, machine.log);
    AutoTrackingManager manager(machine.platform(userDefaults));
    manager.startTracking();
    const double before = bytesWritten();
    for (auto run : state) {
        machine.desktop.application = (machine.desktop.application + 1) % applicationCount;
        machine.clock.moment = machine.clock.moment.addingSeconds(1);
        machine.runLoop.action();
    }
    state.counters["writtenKiB"] = (bytesWritten() - before) / 1024 / static_cast<double>(state.iterations());
}

void changeApplicationAllAnew(benchmark::State& state) {
    Machine machine(0);
    PosixFiles files;
    auto days = usageHistory(state.range(0));
    const auto session = days.back().sessions.back();
    const double before = bytesWritten();
    for (auto run : state) {
        days.back().sessions.push_back(session);
        const auto encoded = json::encode(days, json::Layout::compact);
        if (files.replace(machine.file, encoded.value().bytes(), Durability::leftToSystem).failed())
            std::abort();
    }
    state.counters["writtenKiB"] = (bytesWritten() - before) / 1024 / static_cast<double>(state.iterations());
}

// Start

void startTracker(benchmark::State& state) {
    Machine machine(state.range(0));
    for (auto run : state) {
        SqliteUserDefaults userDefaults(machine.file, machine.clock, machine.log);
        benchmark::DoNotOptimize(AutoTrackingManager(machine.platform(userDefaults)));
    }
    state.counters["diskMB"] = static_cast<double>(fs::file_size(machine.file)) / 1e6;
}

void startReadingAllAtOnce(benchmark::State& state) {
    Machine machine(state.range(0));
    for (auto run : state) {
        SqliteUserDefaults userDefaults(machine.file, machine.clock, machine.log);
        const auto bytes = dataValue(userDefaults, "autoTrackingData");
        benchmark::DoNotOptimize(json::decode<std::vector<DailyAppUsage>>(*bytes));
        state.counters["valueMB"] = static_cast<double>(bytes->size()) / 1e6;
    }
}

/// Does the work in a child process; returns by how many megabytes that has grown when `measure` is called,
/// and at its peak.
std::pair<double, double> memoryFor(const std::function<void(const std::function<void()>& measure)>& work) {
    int ends[2] = {};
    if (::pipe(ends) != 0)
        std::abort();
    const pid_t child = ::fork();
    if (child == 0) {
        // Otherwise memory freed earlier would be reused without being counted.
        ::malloc_trim(0);
        std::ofstream("/proc/self/clear_refs") << "5";
        const double before = megabytesInUse();
        work([&] {
            const double grown[2] = {megabytesInUse() - before, mostMegabytesInUse() - before};
            if (::write(ends[1], grown, sizeof grown) != sizeof grown)
                std::abort();
        });
        ::_exit(0);
    }
    double grown[2] = {};
    if (::read(ends[0], grown, sizeof grown) != sizeof grown || ::waitpid(child, nullptr, 0) != child)
        std::abort();
    ::close(ends[0]);
    ::close(ends[1]);
    return {grown[0], grown[1]};
}

void memoryAfterStart(benchmark::State& state) {
    Machine machine(state.range(0));
    for (auto run : state) {
        const auto [grown, most] = memoryFor([&](const auto& measure) {
            SqliteUserDefaults userDefaults(machine.file, machine.clock, machine.log);
            const AutoTrackingManager manager(machine.platform(userDefaults));
            measure();
        });
        state.counters["grownMB"] = grown;
        state.counters["mostMB"] = most;
    }
}

void memoryReadingAllAtOnce(benchmark::State& state) {
    Machine machine(state.range(0));
    for (auto run : state) {
        const auto [grown, most] = memoryFor([&](const auto& measure) {
            SqliteUserDefaults userDefaults(machine.file, machine.clock, machine.log);
            const auto days =
                json::decode<std::vector<DailyAppUsage>>(*dataValue(userDefaults, "autoTrackingData"));
            measure();
        });
        state.counters["grownMB"] = grown;
        state.counters["mostMB"] = most;
    }
}

// Clearing a day: everything after it is encoded and written anew

void clearFirstDay(benchmark::State& state) {
    Machine machine(state.range(0));
    SqliteUserDefaults userDefaults(machine.file, machine.clock, machine.log);
    AutoTrackingManager manager(machine.platform(userDefaults));
    for (auto run : state)
        manager.clearDataForDay(manager.dailyUsageData->front().date);
}

void sizes(benchmark::internal::Benchmark* benchmark) {
    benchmark->Arg(1000)->Arg(10000)->Arg(100000)->Unit(benchmark::kMillisecond)->UseRealTime();
}

void once(benchmark::internal::Benchmark* benchmark) {
    benchmark->Arg(0)->Arg(100000)->Iterations(1)->Unit(benchmark::kMillisecond)->UseRealTime();
}

BENCHMARK(changeApplication)->Apply(sizes)->MinTime(2);
BENCHMARK(changeApplicationAllAnew)->Apply(sizes);
BENCHMARK(startTracker)->Arg(0)->Apply(sizes);
BENCHMARK(startReadingAllAtOnce)->Apply(sizes);
BENCHMARK(memoryAfterStart)->Apply(once);
BENCHMARK(memoryReadingAllAtOnce)->Arg(100000)->Iterations(1)->Unit(benchmark::kMillisecond)->UseRealTime();
BENCHMARK(clearFirstDay)->Arg(100000)->Iterations(3)->Unit(benchmark::kMillisecond)->UseRealTime();

} // namespace
} // namespace brisklog
