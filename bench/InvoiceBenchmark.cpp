// What writing an invoice costs: at most 5 ms for an ordinary one, 250 ms and 40 MB for the longest anybody
// will write; compared with the table's cells alone, drawn the plain way.

#include "bench/PlainTable.h"
#include "invoice/InvoiceTexts.h"
#include "invoice/UpdatedInvoiceTemplate.h"
#include "platform/documents/CairoPdfFacility.h"
#include "support/ProfileInMemory.h"

#include <benchmark/benchmark.h>
#include <fstream>
#include <memory>
#include <string>

namespace brisklog {
namespace {

constexpr Date now{816426000};

std::unique_ptr<test::ProfileInMemory> senderProfile() {
    auto kept = std::make_unique<test::ProfileInMemory>();
    UserProfile& sender = kept->profile;
    sender.fullName = "Jürgen Schäfer-Größmann";
    sender.address = "Königsstraße 27 a";
    sender.postalCode = "80331";
    sender.city = "München";
    sender.email = "juergen@schaefer-groessmann.de";
    sender.taxId = "143/815/08155";
    sender.bankName = "Münchner Sparbank eG";
    sender.iban = "DE89 3704 0044 0532 0130 00";
    return kept;
}

Customer customer() {
    Customer customer;
    customer.firstName = "Erika";
    customer.name = "Müßigmann";
    customer.company = "Übersee Handels-GmbH & Co. KG";
    customer.address = "Große Elbstraße 145 b";
    customer.postalCode = "22767";
    customer.city = "Hamburg";
    return customer;
}

/// No two rows show the same description or amount.
std::vector<TimeEntry> entries(std::int64_t count) {
    std::vector<TimeEntry> entries;
    for (std::int64_t i = 0; i < count; ++i) {
        const auto number = static_cast<double>(i);
        TimeEntry entry;
        entry.taskName = "Überarbeitung der Bildergalerie, Abschnitt " + std::to_string(i);
        entry.startTime = Date{number * secondsPerHour};
        entry.endTime = entry.startTime.addingSeconds(600 + number * 60);
        entries.push_back(entry);
    }
    return entries;
}

/// This process's peak memory, in megabytes.
double peakMemory() {
    std::ifstream status("/proc/self/status");
    for (std::string word; status >> word;)
        if (word == "VmHWM:") {
            double kilobytes = 0;
            status >> kilobytes;
            return kilobytes / 1024;
        }
    return 0;
}

void writeInvoice(benchmark::State& state) {
    CairoPdfFacility pdf;
    const auto sender = senderProfile();
    const UpdatedInvoiceTemplate invoice(pdf, sender->profile, Calendar(QTimeZone("Europe/Berlin")), now);
    InvoiceDocument document{.project = {.id = {}, .name = "Website", .hourlyRate = 85.5, .entries = {}},
                             .customer = customer(),
                             .invoiceNumber = "RE-2026-0042",
                             .selectedEntries = entries(1),
                             .additionalNotes = "Leistungszeitraum: 1. bis 14. November 2026."};
    // Fonts are looked up only once per process.
    benchmark::DoNotOptimize(invoice.generate(document));
    document.selectedEntries = entries(state.range(0));
    const double before = peakMemory();
    std::size_t bytes = 0;
    for (auto _ : state)
        bytes = invoice.generate(document).size();
    state.counters["document_bytes"] = static_cast<double>(bytes);
    state.counters["extra_MB"] = peakMemory() - before;
}

/// The table's cells alone, drawn the plain way.
void writeInvoiceCellsPlainly(benchmark::State& state) {
    bench::timePlainTable(
        state, invoiceTable(entries(state.range(0)), 85.5, {now, Calendar(QTimeZone("Europe/Berlin"))}).rows);
}

BENCHMARK(writeInvoice)->ArgName("rows")->Arg(12)->Arg(5000)->Unit(benchmark::kMillisecond);
BENCHMARK(writeInvoiceCellsPlainly)->ArgName("rows")->Arg(12)->Arg(5000)->Unit(benchmark::kMillisecond);

} // namespace
} // namespace brisklog
