#include "invoice/InvoiceGenerator.h"

#include "invoice/ReportDrawing.h"

#include <utility>

namespace brisklog {

InvoiceGenerator::InvoiceGenerator(PdfFacility& pdf, const UserProfile& profile, Calendar calendar, Date now)
    : m_pdf(pdf), m_profile(profile), m_calendar(std::move(calendar)), m_now(now) {}

std::string InvoiceGenerator::generate(const Project& project) const {
    const ReportTexts texts = reportTexts(project, m_profile, m_calendar, m_now);
    const auto document = m_pdf.begin({});
    ReportDrawing(*document, texts).draw();
    return document->finish();
}

} // namespace brisklog
