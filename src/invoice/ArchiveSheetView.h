#pragma once

#include "core/TimeTrackingStore.h"
#include "foundation/Calendar.h"
#include "invoice/EntryIndex.h"

#include <map>
#include <set>
#include <string>
#include <vector>

namespace brisklog {

/// The invoices of one month, newest first.
struct ArchiveGroup {
    /// "2026-11"
    std::string key;
    /// "November 2026"
    std::string title;
    std::vector<ArchivedInvoice> invoices;
};

/// The details shown for an open invoice.
struct ArchiveDetails {
    /// "18.11.2026"
    std::string date;
    /// Totals over the invoice's entries that still exist; "--" when none do.
    std::string time;
    std::string amount;

    bool operator==(const ArchiveDetails&) const = default;
};

/// The invoice's number; "Ohne Nummer" where none was given.
[[nodiscard]] std::string archiveNumber(const ArchivedInvoice& invoice);
/// The customer the invoice was made out to; "Unbekannt" where there was none.
[[nodiscard]] std::string archiveCustomer(const ArchivedInvoice& invoice);

/// The sheet that lists the issued invoices by month. It never changes time entries.
class ArchiveSheetView final : public ObservableObject {
public:
    /// By year and month ("2026-11"), in the store's order within a month.
    using GroupedInvoices = std::map<std::string, std::vector<ArchivedInvoice>>;

    static constexpr const char* explanation =
        "Hier findest du alle archivierten Rechnungen sortiert nach Jahr und Monat.";

    ArchiveSheetView(TimeTrackingStore& timeStore, const Clock& clock);

    /// The invoices whose details are shown.
    Published<std::set<Uuid>> openInvoices{*this};

    /// The current calendar, used for groups and dates.
    [[nodiscard]] Calendar calendar() const { return m_clock.calendar(); }

    [[nodiscard]] bool isEmpty() const { return m_timeStore.archivedInvoices->empty(); }

    [[nodiscard]] GroupedInvoices groupedInvoices() const;
    /// The groups as they are listed: newest month first, and newest invoice first within a month.
    [[nodiscard]] std::vector<ArchiveGroup> groups() const;
    /// The invoice's entries that still exist, whichever project they are in now.
    [[nodiscard]] std::vector<EntryInfo> entryInfosFor(const ArchivedInvoice& invoice) const;
    [[nodiscard]] ArchiveDetails details(const ArchivedInvoice& invoice) const;

    [[nodiscard]] bool isOpen(const Uuid& id) const { return openInvoices->contains(id); }

    /// Shows or hides the invoice's details.
    void toggle(const Uuid& id);

    /// Removes the invoice from the archive; its entries deliberately stay invoiced. Call once the user has
    /// confirmed.
    void deleteInvoice(const Uuid& id);

private:
    TimeTrackingStore& m_timeStore;
    const Clock& m_clock;
    mutable EntryIndex m_index;
};

} // namespace brisklog
