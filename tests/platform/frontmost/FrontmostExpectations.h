#pragma once

#include "platform/FrontmostApplication.h"

#include <optional>
#include <string>

namespace brisklog::test {

[[nodiscard]] DesktopApplication application(const std::string& name, const std::string& identifier);

/// An application without a desktop entry: its identifier is its name.
[[nodiscard]] DesktopApplication application(const std::string& name);

/// Whether this is in front eventually, and still is when asked a second time: programs take their time to
/// open windows, and a gap is bridged once.
[[nodiscard]] bool becomesFrontmost(FrontmostApplication& frontmost,
                                    const std::optional<DesktopApplication>& expected);

} // namespace brisklog::test
