#pragma once

#include "platform/FrontmostApplication.h"

#include <memory>

namespace brisklog {

/// Who tells the frontmost application on the running desktop: the first way of asking that answers. Under
/// Wayland never the X11 way: the X server there knows nothing of native windows, and their time would go to
/// the program before.
[[nodiscard]] std::unique_ptr<FrontmostApplication> chooseFrontmostApplication();

} // namespace brisklog
