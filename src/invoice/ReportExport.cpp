#include "invoice/ReportExport.h"

#include <algorithm>

namespace brisklog {
namespace {

const Project& currentVersion(const TimeTrackingStore& store, const Project& project) {
    const auto& projects = store.projects.get();
    const auto found = std::ranges::find(projects, project.id, &Project::id);
    return found != projects.end() ? *found : project;
}

void write(const ReportPlatform& platform, const Project& project, const std::filesystem::path& file) {
    const auto written = platform.files.writeDocument(file, platform.generate(project));
    if (written.failed())
        platform.log.print("Fehler beim Speichern der PDF: " + written.error().description);
}

} // namespace

void exportReport(const ReportPlatform& platform, const Project& project) {
    platform.savePanel.present(
        {.title = project.name + " als PDF exportieren", .suggestedName = project.name + ".pdf"},
        [platform, project](const std::optional<std::filesystem::path>& file) {
            if (file)
                write(platform, currentVersion(platform.store, project), *file);
        });
}

} // namespace brisklog
