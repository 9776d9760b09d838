#include "invoice/UpdatedInvoiceTemplate.h"

#include "invoice/InvoiceDrawing.h"
#include "profile/UserProfile.h"

#include <algorithm>
#include <utility>

namespace brisklog {

UpdatedInvoiceTemplate::UpdatedInvoiceTemplate(PdfFacility& pdf, const UserProfile& profile,
                                               Calendar calendar, Date now)
    : m_pdf(pdf), m_profile(profile), m_date{now, std::move(calendar)} {}

std::string UpdatedInvoiceTemplate::generate(InvoiceDocument invoice) const {
    // Stable: entries that start at the same moment keep their order.
    std::ranges::stable_sort(invoice.selectedEntries, {}, &TimeEntry::startTime);
    InvoiceTexts texts;
    addSender(texts, m_profile);
    addLetterhead(texts, invoice.customer, invoice.invoiceNumber, m_date);
    texts.table = invoiceTable(invoice.selectedEntries, invoice.project.hourlyRate, m_date);
    texts.notes = invoice.additionalNotes;

    // The name of the business profile's folder, which invoices have always carried.
    const auto document = m_pdf.begin({.creator = "Pennavo",
                                       .author = m_profile.fullName,
                                       .title = texts.name,
                                       .tableRows = texts.table.rows.size()});
    InvoiceDrawing(*document, texts).draw();
    return document->finish();
}

} // namespace brisklog
