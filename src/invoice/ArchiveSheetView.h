#pragma once

#include "core/TimeTrackingStore.h"
#include "foundation/Calendar.h"
#include "invoice/EntryIndex.h"

#include <map>
#include <set>
#include <string>
#include <vector>

namespace brisklog {

/// The invoices of one month, the last one issued first.
struct ArchiveGroup {
    /// "2026-11"
    std::string key;
    /// "November 2026"
    std::string title;
    std::vector<ArchivedInvoice> invoices;
};

/// What an opened invoice says about itself.
struct ArchiveDetails {
    /// "18.11.2026"
    std::string date;
    /// The sums over the covered entries that are still there; "--" when none is.
    std::string time;
    std::string amount;

    bool operator==(const ArchiveDetails&) const = default;
};

/// The invoice's number; a word for it where none was given.
[[nodiscard]] std::string archiveNumber(const ArchivedInvoice& invoice);
/// The customer as the invoice was made out to; "Unbekannt" where there was none.
[[nodiscard]] std::string archiveCustomer(const ArchivedInvoice& invoice);

/// The sheet that lists the issued invoices by month. Time entries are never changed by it.
class ArchiveSheetView final : public ObservableObject {
public:
    /// By year and month ("2026-11"), in the store's order within a month.
    using GroupedInvoices = std::map<std::string, std::vector<ArchivedInvoice>>;

    static constexpr const char* explanation =
        "Hier findest du alle archivierten Rechnungen sortiert nach Jahr und Monat.";

    ArchiveSheetView(TimeTrackingStore& timeStore, const Clock& clock);

    /// The invoices whose details are shown.
    Published<std::set<Uuid>> openInvoices{*this};

    /// By which the groups and dates are now.
    [[nodiscard]] Calendar calendar() const { return m_clock.calendar(); }

    [[nodiscard]] bool isEmpty() const { return m_timeStore.archivedInvoices->empty(); }

    [[nodiscard]] GroupedInvoices groupedInvoices() const;
    /// The groups as they are listed: the newest month first, and in it the newest invoice.
    [[nodiscard]] std::vector<ArchiveGroup> groups() const;
    /// The covered entries that are still there, wherever they are by now.
    [[nodiscard]] std::vector<EntryInfo> entryInfosFor(const ArchivedInvoice& invoice) const;
    [[nodiscard]] ArchiveDetails details(const ArchivedInvoice& invoice) const;

    [[nodiscard]] bool isOpen(const Uuid& id) const { return openInvoices->contains(id); }

    /// Shows the invoice's details, or takes them away.
    void toggle(const Uuid& id);

    /// Removes the invoice from the archive; its entries deliberately stay invoiced. To be called once the
    /// user has confirmed it.
    void deleteInvoice(const Uuid& id);

private:
    TimeTrackingStore& m_timeStore;
    const Clock& m_clock;
    mutable EntryIndex m_index;
};

} // namespace brisklog
