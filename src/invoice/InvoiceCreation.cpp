// Creating the invoice: marking, asking where to save, writing the document, archiving.

#include "foundation/Calendar.h"
#include "foundation/GermanFormat.h"
#include "invoice/InvoiceView.h"

#include <algorithm>
#include <unordered_set>
#include <utility>

namespace brisklog {
namespace {

std::string generate(const InvoicePlatform& platform, const InvoiceDocument& document) {
    platform.log.print("Generiere Rechnung mit UpdatedInvoiceTemplate für Projekt: " + document.project.name +
                       ", Kunde: " + (document.customer ? document.customer->name : "keiner"));
    return platform.generate(document.project, document.customer, document.invoiceNumber, document.entries,
                             document.additionalNotes);
}

void write(const InvoicePlatform& platform, const InvoiceDocument& document,
           const std::filesystem::path& file) {
    const auto written = platform.files.writeDocument(file, generate(platform, document));
    if (written.failed())
        platform.log.print("Fehler beim Speichern der PDF: " + written.error().description);
}

} // namespace

/// A save panel may be answered after its sheet was closed. What it needs then lives here: while there is a
/// sheet, its present state counts, afterwards the state it was left in.
struct InvoiceView::Exports {
    InvoicePlatform platform;
    const InvoiceView* sheet;
    std::optional<InvoiceDocument> lastDocument;

    void finish(const std::filesystem::path& file) const {
        write(platform, sheet != nullptr ? sheet->document() : lastDocument.value(), file);
    }
};

InvoiceView::InvoiceView(TimeTrackingStore& timeStore, int projectIndex, InvoicePlatform platform)
    : manualDate(*this, platform.clock.now()), m_timeStore(timeStore), m_projectIndex(projectIndex),
      m_platform(std::move(platform)),
      m_exports(std::make_shared<Exports>(Exports{m_platform, this, std::nullopt})) {
    // Stops the program right away when there is no such project.
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
                             .entries = {},
                             .additionalNotes = additionalNotes};
    for (const InvoiceEntryStatus& status : entryStatuses.get())
        if (status.isSelected)
            document.entries.push_back(status.entry);
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
}

void InvoiceView::exportInvoicePDF() {
    const std::string today =
        format::date(m_platform.clock.now(), format::DateForm::isoDay, m_platform.clock.calendar());
    m_platform.savePanel.present({.title = "Rechnung als PDF exportieren",
                                  .suggestedName = "Rechnung_" + project().name + "_" + today + ".pdf"},
                                 [exports = m_exports](const std::optional<std::filesystem::path>& file) {
                                     if (file)
                                         exports->finish(*file);
                                 });
}

std::string InvoiceView::generateInvoicePDF() const { return generate(m_platform, document()); }

} // namespace brisklog
