// What the archive costs: 2,000 invoices over 20,000 entries, and ten times that.
// the list            what the sheet knows when it opens: at most 15 times a bare copy of the invoices,
// all details         the sums of every invoice, formatted: at most 6 times one bare index of the
//                     entries and one look-up for every id; going through all entries for each invoice would
//                     take hundreds of times as long,
// the sheet           made, shown and painted: at most 50 ms at 2,000 invoices, beside an empty sheet.

#include "OffscreenApplication.h"
#include "bench/EmptyStore.h"
#include "bench/Histories.h"
#include "invoice/ArchiveSheetView.h"
#include "invoice/screens/ArchiveSheetScreen.h"
#include "support/WritableStore.h"
#include "ui/sheets/SheetWindow.h"

#include <QApplication>
#include <benchmark/benchmark.h>
#include <unordered_map>

namespace brisklog {
namespace {

using namespace bench;

constexpr int projectCount = 20;
constexpr int entriesPerInvoice = 10;
constexpr TimeInterval hour = 3600;
constexpr TimeInterval day = 24 * hour;

/// An archive of that many invoices, one every other day, each for ten entries of several projects.
struct Archive : EmptyStore {
    explicit Archive(std::int64_t invoiceCount) {
        writable(store.projects) = std::vector<Project>(projectCount);
        std::vector<ArchivedInvoice> invoices(static_cast<std::size_t>(invoiceCount));
        writable(store.projects).mutate([&](std::vector<Project>& projects) {
            for (Project& project : projects)
                project = {.id = nextId(), .name = "Projekt", .hourlyRate = 85.5, .entries = {}};
            for (ArchivedInvoice& invoice : invoices)
                fill(invoice, projects, static_cast<double>(&invoice - invoices.data()));
        });
        writable(store.archivedInvoices) = std::move(invoices);
    }

    static void fill(ArchivedInvoice& invoice, std::vector<Project>& projects, double number) {
        invoice = {.id = nextId(),
                   .invoiceNumber = "2026-" + std::to_string(static_cast<int>(number)),
                   .date = Date{500000000 + number * 2 * day},
                   .customerName = "Größmann - Steuerberatung Größmann",
                   .entryIDs = {}};
        for (int entry = 0; entry < entriesPerInvoice; ++entry) {
            Project& project = projects[(static_cast<std::size_t>(number) + static_cast<std::size_t>(entry)) %
                                        projects.size()];
            TimeEntry made;
            made.id = nextId();
            made.taskName = "Entwurf der Startseite";
            made.startTime = invoice.date.addingSeconds(-entry * hour);
            made.endTime = made.startTime.addingSeconds(hour);
            made.isInvoiced = true;
            invoice.entryIDs.push_back(made.id);
            project.entries.push_back(made);
        }
    }
};

// The list

void listArchive(benchmark::State& state) {
    Archive archive(state.range(0));
    for (auto run : state) {
        const ArchiveSheetView view(archive.store, archive.clock);
        benchmark::DoNotOptimize(view.groups());
    }
}

void copyInvoices(benchmark::State& state) {
    const Archive archive(state.range(0));
    for (auto run : state) {
        auto copy = archive.store.archivedInvoices.get();
        benchmark::DoNotOptimize(copy.data());
    }
}

// All details

void detailEveryInvoice(benchmark::State& state) {
    Archive archive(state.range(0));
    for (auto run : state) {
        const ArchiveSheetView view(archive.store, archive.clock);
        for (const ArchivedInvoice& invoice : archive.store.archivedInvoices.get())
            benchmark::DoNotOptimize(view.details(invoice));
    }
}

void indexAndLookUpBare(benchmark::State& state) {
    const Archive archive(state.range(0));
    for (auto run : state) {
        std::unordered_map<Uuid, const TimeEntry*> entries;
        for (const Project& project : archive.store.projects.get())
            for (const TimeEntry& entry : project.entries)
                entries.emplace(entry.id, &entry);
        double sum = 0;
        for (const ArchivedInvoice& invoice : archive.store.archivedInvoices.get())
            for (const Uuid& id : invoice.entryIDs)
                sum += entries.find(id)->second->duration({});
        benchmark::DoNotOptimize(sum);
    }
}

// The sheet

void show(SheetWindow& sheet) {
    sheet.show();
    QApplication::processEvents();
    benchmark::DoNotOptimize(sheet.grab());
}

void openSheet(benchmark::State& state) {
    offscreenApplication();
    Archive archive(state.range(0));
    for (auto run : state) {
        const auto sheet = makeArchiveSheet(archive.store, archive.clock);
        show(*sheet);
    }
}

void openEmptySheet(benchmark::State& state) {
    offscreenApplication();
    for (auto run : state) {
        SheetWindow sheet(QStringLiteral("Archivierte Rechnungen"), QSize(400, 600));
        sheet.addCloseButton(QStringLiteral("Schließen"));
        sheet.setBody(new QWidget, SheetWindow::Body::fixed);
        show(sheet);
    }
}

void sizes(benchmark::internal::Benchmark* benchmark) {
    benchmark->Arg(2000)->Arg(20000)->Unit(benchmark::kMillisecond)->UseRealTime();
}

BENCHMARK(listArchive)->Apply(sizes);
BENCHMARK(copyInvoices)->Apply(sizes);
BENCHMARK(detailEveryInvoice)->Apply(sizes);
BENCHMARK(indexAndLookUpBare)->Apply(sizes);
BENCHMARK(openSheet)->Apply(sizes);
BENCHMARK(openEmptySheet)->Unit(benchmark::kMillisecond)->UseRealTime();

} // namespace
} // namespace brisklog
