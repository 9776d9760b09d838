#include "invoice/InvoiceGenerator.h"

#include "invoice/ReportDrawing.h"

#include <algorithm>
#include <utility>

namespace brisklog {
namespace {

const Project& currentVersion(const TimeTrackingStore& store, const Project& project) {
    const auto& projects = store.projects.get();
    const auto found = std::ranges::find(projects, project.id, &Project::id);
    return found != projects.end() ? *found : project;
}

} // namespace

InvoiceGenerator::InvoiceGenerator(PdfFacility& pdf, const UserProfile& profile, Calendar calendar, Date now)
    : m_pdf(pdf), m_profile(profile), m_calendar(std::move(calendar)), m_now(now) {}

std::string InvoiceGenerator::generate(const Project& project) const {
    const ReportTexts texts = reportTexts(project, m_profile, m_calendar, m_now);
    const auto document =
        m_pdf.begin({.creator = {}, .author = {}, .title = texts.title, .tableRows = texts.rows.size()});
    ReportDrawing(*document, texts).draw();
    return document->finish();
}

void exportReport(const TimeTrackingStore& store, const Project& project,
                  const DocumentFacilities& facilities) {
    exportDocument(facilities,
                   {.title = project.name + " als PDF exportieren", .suggestedName = project.name + ".pdf"},
                   [&store, project, facilities] {
                       const InvoiceGenerator report(facilities.pdf, facilities.profile(),
                                                     facilities.clock.calendar(), facilities.clock.now());
                       return report.generate(currentVersion(store, project));
                   });
}

} // namespace brisklog
