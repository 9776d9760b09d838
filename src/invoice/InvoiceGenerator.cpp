#include "invoice/InvoiceGenerator.h"

#include "invoice/ReportDrawing.h"

#include <utility>

namespace brisklog {

InvoiceGenerator::InvoiceGenerator(PdfFacility& pdf, InvoiceSender sender, Calendar calendar, Date now)
    : m_pdf(pdf), m_sender(std::move(sender)), m_calendar(std::move(calendar)), m_now(now) {}

std::string InvoiceGenerator::generate(const Project& project) const {
    const ReportTexts texts = reportTexts(project, m_sender, m_calendar, m_now);
    const auto document = m_pdf.begin({});
    ReportDrawing(*document, texts).draw();
    return document->finish();
}

} // namespace brisklog
