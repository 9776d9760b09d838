// Creating the invoice: marking, asking where to save, writing the document, archiving.

#include "foundation/Calendar.h"
#include "foundation/GermanFormat.h"
#include "invoice/InvoiceView.h"

#include <unordered_set>
#include <utility>

namespace brisklog {
namespace {

std::string generate(const DocumentFacilities& facilities, InvoiceDocument invoice) {
    facilities.log.print(
        "Generiere Rechnung mit UpdatedInvoiceTemplate für Projekt: " + invoice.project.name +
        ", Kunde: " + (invoice.customer ? invoice.customer->name : "keiner"));
    return UpdatedInvoiceTemplate(facilities.pdf, facilities.profile(), facilities.clock.calendar(),
                                  facilities.clock.now())
        .generate(std::move(invoice));
}

} // namespace

/// A save panel may be answered after its sheet was closed, so what it needs lives here: the sheet's current
/// state while the sheet exists, its last state afterwards.
struct InvoiceView::Exports {
    DocumentFacilities facilities;
    const InvoiceView* sheet;
    std::optional<InvoiceDocument> lastDocument;

    [[nodiscard]] std::string makeDocument() const {
        return generate(facilities, sheet != nullptr ? sheet->document() : lastDocument.value());
    }
};

InvoiceView::InvoiceView(TimeTrackingStore& timeStore, int projectIndex, DocumentFacilities facilities,
                         NotificationCenter& notificationCenter)
    : manualDate(*this, facilities.clock.now()), m_timeStore(timeStore), m_projectIndex(projectIndex),
      m_facilities(std::move(facilities)), m_notificationCenter(notificationCenter),
      m_exports(std::make_shared<Exports>(Exports{m_facilities, this, std::nullopt})) {
    // Fails fast when there is no such project.
    static_cast<void>(project());
}

InvoiceView::~InvoiceView() {
    const bool panelIsOpen = m_exports.use_count() > 1;
    if (panelIsOpen)
        m_exports->lastDocument = document();
    m_exports->sheet = nullptr;
}

std::vector<Uuid> InvoiceView::selectedIds() const {
    std::vector<Uuid> ids;
    for (const InvoiceEntryStatus& status : entryStatuses.get())
        if (status.isSelected)
            ids.push_back(status.id);
    return ids;
}

InvoiceDocument InvoiceView::document() const {
    InvoiceDocument document{.project = project(),
                             .customer = selectedCustomer(),
                             .invoiceNumber = invoiceNumber,
                             .selectedEntries = {},
                             .additionalNotes = additionalNotes};
    for (const InvoiceEntryStatus& status : entryStatuses.get())
        if (status.isSelected)
            document.selectedEntries.push_back(status.entry);
    return document;
}

void InvoiceView::createInvoice() {
    const std::vector<Uuid> ids = selectedIds();
    m_timeStore.markEntriesInvoiced(project().id, ids);
    entryStatuses.mutate([billed = std::unordered_set(ids.begin(), ids.end())](auto& statuses) {
        for (InvoiceEntryStatus& status : statuses)
            if (billed.contains(status.id))
                status.isInvoiced = true;
    });
    exportInvoicePDF();
    const auto customer = selectedCustomer();
    m_timeStore.addArchivedInvoice(
        invoiceNumber, customer ? std::optional(customerChoice(*customer)) : std::nullopt, selectedIds());
    say(invoiceNumber->empty() ? "Rechnung erstellt" : "Rechnung " + *invoiceNumber + " erstellt");
}

void InvoiceView::exportInvoicePDF() {
    const std::string today =
        format::date(m_facilities.clock.now(), format::DateForm::isoDay, m_facilities.clock.calendar());
    exportDocument(m_facilities,
                   {.title = "Rechnung als PDF exportieren",
                    .suggestedName = "Rechnung_" + project().name + "_" + today + ".pdf"},
                   [exports = m_exports] { return exports->makeDocument(); });
}

std::string InvoiceView::generateInvoicePDF() const { return generate(m_facilities, document()); }

} // namespace brisklog
