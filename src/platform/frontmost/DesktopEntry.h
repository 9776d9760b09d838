#pragma once

#include <filesystem>
#include <optional>
#include <string>
#include <string_view>

namespace brisklog {

/// What the desktop knows about an installed application.
struct DesktopEntry {
    /// Its file name without the extension, preceded by any subfolders, separated by "-".
    std::string id;
    /// The German name, otherwise the default one.
    std::string name;
    /// The name of an icon of the icon theme or the path of a file; may be empty.
    std::string icon;
    /// The class of its windows if that differs from its id; may be empty.
    std::string startupWindowClass;
    /// The name of the program file it starts; may be empty.
    std::string program;
    /// Whether menus show it.
    bool isShown = true;

    bool operator==(const DesktopEntry&) const = default;
};

/// The entry described by a file's text; absent when it is not an application, is marked as deleted
/// ("Hidden") or has no name.
[[nodiscard]] std::optional<DesktopEntry> parseDesktopEntry(std::string id, std::string_view text);

/// The same for a file; also absent when it cannot be read.
[[nodiscard]] std::optional<DesktopEntry> readDesktopEntry(std::string id, const std::filesystem::path& path);

} // namespace brisklog
