#pragma once

#include "platform/FrontmostApplication.h"

#include <optional>
#include <string>

namespace brisklog::test {

[[nodiscard]] DesktopApplication application(const std::string& name, const std::string& identifier);

/// One that no desktop entry describes: its identifier is its name.
[[nodiscard]] DesktopApplication application(const std::string& name);

/// Whether this is in front in the end, also when asked a second time: programs open their windows when they
/// please, and a gap is bridged once.
[[nodiscard]] bool becomesFrontmost(FrontmostApplication& frontmost,
                                    const std::optional<DesktopApplication>& expected);

} // namespace brisklog::test
