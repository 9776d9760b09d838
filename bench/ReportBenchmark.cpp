// What writing an entry report costs: no more than 250 ms for the longest project anybody will have.

#include "bench/PlainTable.h"
#include "invoice/InvoiceGenerator.h"
#include "invoice/ReportTexts.h"
#include "platform/documents/CairoPdfFacility.h"
#include "support/ProfileInMemory.h"

#include <benchmark/benchmark.h>
#include <string>

namespace brisklog {
namespace {

constexpr Date now{816426000};

/// No two rows show the same task, day and time, or earnings.
Project projectOf(std::int64_t entries) {
    Project project{.id = {}, .name = "Website-Relaunch", .hourlyRate = 85.5, .entries = {}};
    for (std::int64_t i = 0; i < entries; ++i) {
        const auto number = static_cast<double>(i);
        TimeEntry entry;
        entry.taskName = "Überarbeitung der Galerie " + std::to_string(i);
        entry.startTime = Date{number * 5.3 * secondsPerHour};
        entry.endTime = entry.startTime.addingSeconds(600 + number * 60);
        project.entries.push_back(entry);
    }
    return project;
}

void writeReport(benchmark::State& state) {
    CairoPdfFacility pdf;
    test::ProfileInMemory kept;
    UserProfile& sender = kept.profile;
    sender.companyName = "Schäfer Softwareentwicklung";
    sender.fullName = "Jürgen Schäfer-Größmann";
    sender.iban = "DE89 3704 0044 0532 0130 00";
    const InvoiceGenerator report(pdf, sender, Calendar(QTimeZone("Europe/Berlin")), now);
    const Project project = projectOf(state.range(0));
    // Fonts are looked up only once per process.
    benchmark::DoNotOptimize(report.generate(projectOf(1)));
    std::size_t bytes = 0;
    for (auto _ : state)
        bytes = report.generate(project).size();
    state.counters["document_bytes"] = static_cast<double>(bytes);
}

/// The rows' cells alone, drawn the plain way.
void writeReportCellsPlainly(benchmark::State& state) {
    const test::ProfileInMemory nobody;
    const ReportTexts texts =
        reportTexts(projectOf(state.range(0)), nobody.profile, Calendar(QTimeZone("Europe/Berlin")), now);
    std::vector<bench::PlainRow> rows;
    for (const ReportRow& row : texts.rows)
        rows.push_back({row.taskName, row.start.day, row.start.time, row.end.day, row.end.time, row.duration,
                        row.earnings.value_or("")});
    bench::timePlainTable(state, rows);
}

BENCHMARK(writeReport)->ArgName("rows")->Arg(12)->Arg(5000)->Unit(benchmark::kMillisecond);
BENCHMARK(writeReportCellsPlainly)->ArgName("rows")->Arg(12)->Arg(5000)->Unit(benchmark::kMillisecond);

} // namespace
} // namespace brisklog
