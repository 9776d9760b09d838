#include "invoice/InvoiceTable.h"

#include "foundation/GermanFormat.h"

#include <array>

namespace brisklog {
namespace {

using Content = InvoiceColumn::Content;

std::string money(double euros) { return format::money(euros, "0,00\u00A0€"); }

std::string description(const BilledEntry& billed) { return billed.entry.taskName; }

std::string duration(const BilledEntry& billed) {
    return format::paddedDuration(billed.entry.duration(billed.date.now), "0\u00A0h 0\u00A0min");
}

std::string rate(const BilledEntry& billed) {
    return money(billed.entry.hourlyRate.value_or(billed.projectRate.value_or(0)));
}

std::string amount(const BilledEntry& billed) {
    return money(billed.entry.earnings(billed.projectRate, billed.date.now));
}

constexpr std::array columns{InvoiceColumn{"Beschreibung", 0, 0.5, Content::text, description},
                             InvoiceColumn{"Dauer", 0.5, 0.15, Content::number, duration},
                             InvoiceColumn{"Stundensatz", 0.65, 0.15, Content::number, rate},
                             InvoiceColumn{"Betrag", 0.8, 0.15, Content::number, amount}};

} // namespace

std::span<const InvoiceColumn> invoiceColumns() { return columns; }

InvoiceTable invoiceTable(const std::vector<TimeEntry>& entries, std::optional<double> projectRate,
                          const InvoiceDate& date) {
    InvoiceTable table;
    double total = 0;
    for (const TimeEntry& entry : entries) {
        InvoiceCells& cells = table.rows.emplace_back();
        for (const InvoiceColumn& column : columns)
            cells.push_back(column.cell({entry, projectRate, date}));
        // Exact seconds count: the invoice does not round time.
        total += entry.earnings(projectRate, date.now);
    }
    table.total = money(total);
    return table;
}

} // namespace brisklog
