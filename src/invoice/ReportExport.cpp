#include "invoice/ReportExport.h"

#include "invoice/InvoiceGenerator.h"

#include <algorithm>

namespace brisklog {
namespace {

const Project& currentVersion(const TimeTrackingStore& store, const Project& project) {
    const auto& projects = store.projects.get();
    const auto found = std::ranges::find(projects, project.id, &Project::id);
    return found != projects.end() ? *found : project;
}

} // namespace

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
