#pragma once

#include <filesystem>
#include <optional>
#include <string>
#include <string_view>

namespace brisklog {

/// What the desktop knows about an installed application.
struct DesktopEntry {
    /// The name of its file without the ending; folders on the way to it are parted by "-".
    std::string id;
    /// The German name, else the general one.
    std::string name;
    /// The name of an icon of the icon theme or the path of a file; may be empty.
    std::string icon;
    /// The class its windows have where that is not its id; may be empty.
    std::string startupWindowClass;
    /// The name of the program file it starts; may be empty.
    std::string program;
    /// Whether menus show it.
    bool isShown = true;

    bool operator==(const DesktopEntry&) const = default;
};

/// The entry a file's text describes; absent when it is no application's, was deleted by its owner
/// ("Hidden") or has no name.
[[nodiscard]] std::optional<DesktopEntry> parseDesktopEntry(std::string id, std::string_view text);

/// The same of a file; absent, too, when it cannot be read.
[[nodiscard]] std::optional<DesktopEntry> readDesktopEntry(std::string id, const std::filesystem::path& path);

} // namespace brisklog
