#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace brisklog {

/// The icon from the desktop's theme, or from the file if `icon` is a path, as a PNG image of 32 × 32 pixels,
/// or of another size if the theme lacks that one. Absent when there is none.
[[nodiscard]] std::optional<std::string> iconPng(const std::string& icon);

/// The best of a window's icons (see X11ActiveWindow::icons) as such an image; absent when none of them is
/// complete.
[[nodiscard]] std::optional<std::string> iconPng(const std::vector<std::uint32_t>& windowIcons);

} // namespace brisklog
