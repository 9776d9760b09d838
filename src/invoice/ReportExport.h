#pragma once

#include "core/TimeTrackingStore.h"
#include "platform/Files.h"
#include "platform/Log.h"
#include "platform/SavePanel.h"

#include <functional>
#include <string>

namespace brisklog {

/// The outside world as the export of an entry report needs it; all of it outlives the save panel.
struct ReportPlatform {
    const TimeTrackingStore& store;
    SavePanel& savePanel;
    Files& files;
    Log& log;
    /// Makes the bytes of the report.
    std::function<std::string(const Project&)> generate;
};

/// Asks where to save the report of the project's entries and writes it there once the user has chosen. The
/// project is reported as it is at that moment; one deleted while the panel is up, as it was before. A failed
/// write is one printed line.
void exportReport(const ReportPlatform& platform, const Project& project);

} // namespace brisklog
