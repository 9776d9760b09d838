#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace brisklog {

/// The icon of the desktop's theme, or of the file where `icon` is a path, as a PNG image of 32 × 32 pixels;
/// a theme without that size gives what it has. Absent when there is none.
[[nodiscard]] std::optional<std::string> iconPng(const std::string& icon);

/// The best of the icons a window carries (see X11ActiveWindow::icons) as such an image; absent when none
/// of them is whole.
[[nodiscard]] std::optional<std::string> iconPng(const std::vector<std::uint32_t>& windowIcons);

} // namespace brisklog
