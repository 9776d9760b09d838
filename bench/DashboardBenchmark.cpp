// What all the dashboard's figures cost in one pass, compared with computing each by its definition: at most
// 16 ms, one frame of the screen, at 100,000 entries.

#include "overview/DashboardDefinitions.h"

#include <benchmark/benchmark.h>
#include <random>

namespace brisklog {
namespace {

constexpr Date now{816426000};
constexpr double day = 86400;

/// Entries of up to two hours over two years, the last of them today.
std::vector<Project> history(std::int64_t entryCount) {
    std::mt19937 random(20261115);
    std::vector<Project> projects(20);
    for (Project& project : projects)
        project = {.id = Uuid::generate(), .name = "Projekt", .hourlyRate = 85.5, .entries = {}};
    for (std::int64_t i = 0; i < entryCount; ++i) {
        TimeEntry entry;
        entry.taskName = "Übersetzung der Oberfläche, zweiter Teil";
        entry.startTime = now.addingSeconds(-730 * day * static_cast<double>(entryCount - i) /
                                            static_cast<double>(entryCount));
        entry.endTime = entry.startTime.addingSeconds(static_cast<double>(random() % 7200));
        projects[static_cast<std::size_t>(i) % projects.size()].entries.push_back(entry);
    }
    return projects;
}

void dashboardInOnePass(benchmark::State& state) {
    const auto projects = history(state.range(0));
    const Calendar calendar{QTimeZone("Europe/Berlin")};
    for (auto run : state)
        benchmark::DoNotOptimize(dashboardFigures(projects, {}, calendar, now));
}

void dashboardOneByOne(benchmark::State& state) {
    const auto projects = history(state.range(0));
    const TimeTrackingStore::ActiveEntries timers;
    const Calendar calendar{QTimeZone("Europe/Berlin")};
    for (auto run : state)
        benchmark::DoNotOptimize(test::DashboardDefinitions{projects, timers, calendar, now}.all());
}

BENCHMARK(dashboardInOnePass)->Arg(10000)->Arg(100000)->Unit(benchmark::kMillisecond);
BENCHMARK(dashboardOneByOne)->Arg(10000)->Arg(100000)->Unit(benchmark::kMillisecond);

} // namespace
} // namespace brisklog
