// What the invoice sheet costs for a project with many entries:
// opening             made, shown and painted: at most 50 ms at 10,000 entries, beside the same sheet without
//                     entries,
// a refresh           as a running timer causes it once a second: at most 5 ms at 10,000 entries,
// a tick              one row ticked, the sums made anew and everything painted: at most 16 ms,
// a step              to the next row with the keyboard, which scrolls the sheet: at most 16 ms.

#include "OffscreenApplication.h"
#include "bench/EmptyStore.h"
#include "invoice/screens/InvoiceScreen.h"
#include "platform/documents/CairoPdfFacility.h"
#include "support/ProfileInMemory.h"
#include "support/RecordingSavePanel.h"
#include "support/WritableStore.h"
#include "ui/lists/RowList.h"
#include "ui/sheets/SheetWindow.h"

#include <QApplication>
#include <QKeyEvent>
#include <benchmark/benchmark.h>

namespace brisklog {
namespace {

using namespace bench;

/// A project with that many entries of an hour each, over nothing that writes.
struct Billing : EmptyStore {
    explicit Billing(std::int64_t entryCount) {
        Project project{.id = Uuid::generate(), .name = "Website", .hourlyRate = 85.5, .entries = {}};
        for (std::int64_t i = 0; i < entryCount; ++i) {
            TimeEntry entry;
            entry.id = Uuid::generate();
            entry.taskName = "Überarbeitung der Bildergalerie, Abschnitt " + std::to_string(i);
            entry.startTime = Date{8.0e8 + static_cast<double>(i) * secondsPerHour};
            entry.endTime = entry.startTime.addingSeconds(secondsPerHour);
            project.entries.push_back(entry);
        }
        writable(store.projects) = {project};
    }

    [[nodiscard]] std::unique_ptr<SheetWindow> open() {
        auto sheet = makeInvoiceSheet(store, 0,
                                      {.pdf = pdf,
                                       .clock = clock,
                                       .savePanel = savePanel,
                                       .files = files,
                                       .log = log,
                                       .profile = [this]() -> const UserProfile& { return sender.profile; }},
                                      notifications);
        sheet->show();
        QApplication::processEvents();
        return sheet;
    }

    [[nodiscard]] static InvoiceView& viewOf(SheetWindow& sheet) {
        for (QWidget* const child : sheet.findChildren<QWidget*>())
            if (auto* const screen = dynamic_cast<InvoiceScreen*>(child))
                return screen->view();
        std::abort();
    }

    [[nodiscard]] static RowList& rowsOf(SheetWindow& sheet) {
        for (QWidget* const child : sheet.findChildren<QWidget*>())
            if (auto* const list = dynamic_cast<RowList*>(child))
                return *list;
        std::abort();
    }

    CairoPdfFacility pdf;
    test::RecordingSavePanel savePanel;
    test::ProfileInMemory sender;
    NotificationCenter notifications;
};

void openInvoiceSheet(benchmark::State& state) {
    offscreenApplication();
    Billing billing(state.range(0));
    for (auto run : state) {
        const auto sheet = billing.open();
        benchmark::DoNotOptimize(sheet->grab());
    }
}

void refreshInvoiceSheet(benchmark::State& state) {
    offscreenApplication();
    Billing billing(state.range(0));
    const auto sheet = billing.open();
    for (auto run : state) {
        billing.store.announce();
        QApplication::processEvents();
    }
}

void tickInvoiceRow(benchmark::State& state) {
    offscreenApplication();
    Billing billing(state.range(0));
    const auto sheet = billing.open();
    for (auto run : state) {
        Billing::viewOf(*sheet).toggleEntry(1);
        QApplication::processEvents();
    }
}

void walkInvoiceRows(benchmark::State& state) {
    offscreenApplication();
    Billing billing(state.range(0));
    const auto sheet = billing.open();
    RowList& list = Billing::rowsOf(*sheet);
    list.setFocus(Qt::TabFocusReason);
    for (auto run : state) {
        const bool isAtEnd = list.currentIndex().row() + 1 == list.model()->rowCount();
        QKeyEvent step(QEvent::KeyPress, isAtEnd ? Qt::Key_Home : Qt::Key_Down, Qt::NoModifier);
        QApplication::sendEvent(&list, &step);
        QApplication::processEvents();
    }
}

void sizes(benchmark::internal::Benchmark* benchmark) {
    benchmark->Arg(0)->Arg(10000)->Arg(25000)->Unit(benchmark::kMillisecond)->UseRealTime();
}

BENCHMARK(openInvoiceSheet)->Apply(sizes);
BENCHMARK(refreshInvoiceSheet)->Apply(sizes);
BENCHMARK(walkInvoiceRows)->Arg(10000)->Arg(25000)->Unit(benchmark::kMillisecond)->UseRealTime();
BENCHMARK(tickInvoiceRow)->Arg(10000)->Arg(25000)->Unit(benchmark::kMillisecond)->UseRealTime();

} // namespace
} // namespace brisklog
