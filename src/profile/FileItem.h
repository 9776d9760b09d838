#pragma once

#include "platform/Files.h"

#include <filesystem>
#include <string>
#include <vector>

namespace brisklog {

/// An entry of the logo picker: a folder, or a file whose extension is that of an image.
struct FileItem {
    std::filesystem::path path;
    bool isDirectory = false;

    /// The bytes of the file name, which may not be valid UTF-8.
    [[nodiscard]] std::string name() const { return path.filename().string(); }

    bool operator==(const FileItem&) const = default;
};

/// Those of a folder's entries that the picker offers, sorted: no hidden ones, folders before images, each
/// group as a German file browser sorts (ignoring case, umlauts next to their vowels, numbers by value).
[[nodiscard]] std::vector<FileItem> offeredItems(const std::filesystem::path& folder,
                                                 std::vector<FolderEntry> entries);

} // namespace brisklog
