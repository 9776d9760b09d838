#pragma once

#include "platform/FrontmostApplication.h"
#include "platform/frontmost/WindowIdentity.h"

#include <memory>

namespace brisklog {

/// Determines the frontmost application on the running desktop by the first way of asking that works. Never
/// by X11 under Wayland: the X server there does not know native windows, and their time would be recorded
/// for the previous program.
[[nodiscard]] std::unique_ptr<FrontmostApplication> chooseFrontmostApplication(OwnWindows own);

} // namespace brisklog
