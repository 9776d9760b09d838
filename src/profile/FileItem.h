#pragma once

#include "platform/Files.h"

#include <filesystem>
#include <string>
#include <vector>

namespace brisklog {

/// An entry of the logo picker: a folder, or a file that by its name is an image.
struct FileItem {
    std::filesystem::path path;
    bool isDirectory = false;

    /// The file name's bytes, which may be no UTF-8.
    [[nodiscard]] std::string name() const { return path.filename().string(); }

    bool operator==(const FileItem&) const = default;
};

/// What of a folder's entries the picker offers, in its order: no hidden ones, folders before images, each
/// group as a German file browser sorts (upper and lower case alike, umlauts beside their vowels, numbers by
/// their value).
[[nodiscard]] std::vector<FileItem> offeredItems(const std::filesystem::path& folder,
                                                 std::vector<FolderEntry> entries);

} // namespace brisklog
