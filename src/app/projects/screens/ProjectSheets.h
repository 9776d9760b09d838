#pragma once

#include "core/TimeTrackingStore.h"

#include <memory>

namespace brisklog {

class SheetWindow;

/// The sheet that creates a project, ready to be presented.
[[nodiscard]] std::unique_ptr<SheetWindow> makeNewProjectSheet(TimeTrackingStore& store);

/// The sheet that edits or deletes the project at that position, ready to be presented.
[[nodiscard]] std::unique_ptr<SheetWindow> makeProjectSettingsSheet(TimeTrackingStore& store,
                                                                    int projectIndex);

} // namespace brisklog
