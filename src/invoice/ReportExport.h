#pragma once

#include "core/TimeTrackingStore.h"
#include "invoice/DocumentExport.h"

namespace brisklog {

/// Asks where to save the report of the project's entries and writes it there once the user has chosen. The
/// project is reported as it is at that moment; one deleted while the panel is up, as it was before.
void exportReport(const TimeTrackingStore& store, const Project& project,
                  const DocumentFacilities& facilities);

} // namespace brisklog
