#include "invoice/UpdatedInvoiceTemplate.h"

#include "invoice/InvoiceDrawing.h"
#include "invoice/InvoiceTexts.h"

#include <algorithm>
#include <utility>

namespace brisklog {

UpdatedInvoiceTemplate::UpdatedInvoiceTemplate(PdfFacility& pdf, InvoiceSender sender, Calendar calendar,
                                               Date now)
    : m_pdf(pdf), m_sender(std::move(sender)), m_calendar(std::move(calendar)), m_now(now) {}

std::string UpdatedInvoiceTemplate::generate(const Project& project, const std::optional<Customer>& customer,
                                             const std::string& invoiceNumber,
                                             std::vector<TimeEntry> selectedEntries,
                                             const std::string& additionalNotes) const {
    // Stable: entries that start together stay in the order in which they were chosen.
    std::ranges::stable_sort(selectedEntries, {}, &TimeEntry::startTime);
    InvoiceTexts texts;
    addSender(texts, m_sender);
    addLetterhead(texts, customer, invoiceNumber, m_calendar, m_now);
    addTable(texts, selectedEntries, project.hourlyRate, m_now);
    texts.notes = additionalNotes;

    // The name is that of the folder with the business profile, which invoices have always carried.
    const auto document = m_pdf.begin({.creator = "Pennavo", .author = m_sender.fullName});
    InvoiceDrawing(*document, texts).draw();
    return document->finish();
}

} // namespace brisklog
