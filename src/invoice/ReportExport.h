#pragma once

#include "core/TimeTrackingStore.h"
#include "invoice/DocumentExport.h"

namespace brisklog {

/// Asks where to save the report of the project's entries and writes it there once the user has chosen. The
/// report shows the project as it is at that moment, or as it was before if it was deleted meanwhile.
void exportReport(const TimeTrackingStore& store, const Project& project,
                  const DocumentFacilities& facilities);

} // namespace brisklog
