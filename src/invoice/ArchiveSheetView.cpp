#include "invoice/ArchiveSheetView.h"

#include "foundation/GermanFormat.h"

#include <algorithm>
#include <array>
#include <cstdio>
#include <iterator>
#include <utility>

namespace brisklog {
namespace {

constexpr const char* noFigure = "--";

std::string groupKey(const YearAndMonth& month) {
    std::array<char, 32> text{};
    std::snprintf(text.data(), text.size(), "%04d-%02d", month.year, month.month);
    return text.data();
}

/// The month in words; the key itself where the date belongs to no month.
std::string groupTitle(const std::string& key, Date date, const Calendar& calendar) {
    return key == groupKey({}) ? key : format::date(date, format::DateForm::monthAndYear, calendar);
}

} // namespace

std::string archiveNumber(const ArchivedInvoice& invoice) {
    return invoice.invoiceNumber.empty() ? "Ohne Nummer" : invoice.invoiceNumber;
}

std::string archiveCustomer(const ArchivedInvoice& invoice) {
    return invoice.customerName.value_or("").empty() ? "Unbekannt" : *invoice.customerName;
}

ArchiveSheetView::ArchiveSheetView(TimeTrackingStore& timeStore, const Clock& clock)
    : m_timeStore(timeStore), m_clock(clock), m_index(timeStore) {}

ArchiveSheetView::GroupedInvoices ArchiveSheetView::groupedInvoices() const {
    const Calendar current = calendar();
    GroupedInvoices grouped;
    for (const ArchivedInvoice& invoice : m_timeStore.archivedInvoices.get())
        grouped[groupKey(current.monthOf(invoice.date))].push_back(invoice);
    return grouped;
}

std::vector<ArchiveGroup> ArchiveSheetView::groups() const {
    const Calendar current = calendar();
    std::vector<ArchiveGroup> groups;
    for (auto& [key, invoices] : groupedInvoices()) {
        ArchiveGroup group{
            .key = key, .title = groupTitle(key, invoices.front().date, current), .invoices = {}};
        group.invoices.assign(std::make_move_iterator(invoices.rbegin()),
                              std::make_move_iterator(invoices.rend()));
        groups.push_back(std::move(group));
    }
    // Keys have a fixed width, so they sort chronologically.
    std::ranges::reverse(groups);
    return groups;
}

std::vector<EntryInfo> ArchiveSheetView::entryInfosFor(const ArchivedInvoice& invoice) const {
    return m_index.find(invoice.entryIDs);
}

ArchiveDetails ArchiveSheetView::details(const ArchivedInvoice& invoice) const {
    const Date now = m_clock.now();
    const std::vector<EntryInfo> infos = entryInfosFor(invoice);
    ArchiveDetails details{.date = format::date(invoice.date, format::DateForm::mediumDate, calendar()),
                           .time = noFigure,
                           .amount = noFigure};
    if (infos.empty())
        return details;
    TimeInterval time = 0;
    double amount = 0;
    for (const EntryInfo& info : infos) {
        time += info.entry->duration(now);
        amount += info.entry->earnings(info.project->hourlyRate, now);
    }
    details.time = format::duration(time, noFigure);
    details.amount = format::money(amount, noFigure);
    return details;
}

void ArchiveSheetView::toggle(const Uuid& id) {
    openInvoices.mutate([&id](std::set<Uuid>& open) {
        if (open.erase(id) == 0)
            open.insert(id);
    });
}

void ArchiveSheetView::deleteInvoice(const Uuid& id) {
    openInvoices.mutate([&id](std::set<Uuid>& open) { open.erase(id); });
    m_timeStore.deleteArchivedInvoice(id);
}

} // namespace brisklog
