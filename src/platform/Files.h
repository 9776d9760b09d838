#pragma once

#include "foundation/Date.h"
#include "foundation/Result.h"

#include <filesystem>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace brisklog {

/// Whether a write returns only once the bytes are on the medium.
enum class Durability {
    throughToMedium, ///< survives a power cut once it has returned
    leftToSystem,    ///< survives the end of the process; for files written on every keystroke
};

/// An item in a folder.
struct FolderEntry {
    /// As the system stores it, which may not be UTF-8.
    std::string name;
    /// True also for a link to a folder.
    bool isFolder = false;

    bool operator==(const FolderEntry&) const = default;
};

/// The user's folders and whole files in them. Errors read "PATH: the system's message".
class Files {
public:
    virtual ~Files() = default;

    /// The desktop's documents folder, whether or not it exists; absent when the user has no home.
    [[nodiscard]] virtual std::optional<std::filesystem::path> documentsFolder() const = 0;

    /// Where programs keep their data, whether or not it exists; absent when the user has no home.
    [[nodiscard]] virtual std::optional<std::filesystem::path> applicationSupportFolder() const = 0;

    /// Where programs keep what should outlive them but may be lost without harm; absent when the user has no
    /// home.
    [[nodiscard]] virtual std::optional<std::filesystem::path> stateFolder() const = 0;

    /// The desktop's folder for pictures, whether or not it exists; absent when the user's settings name
    /// none.
    [[nodiscard]] virtual std::optional<std::filesystem::path> picturesFolder() const = 0;

    /// The user's home; absent when there is none.
    [[nodiscard]] virtual std::optional<std::filesystem::path> homeFolder() const = 0;

    /// Whether anything of any kind exists at the path.
    [[nodiscard]] virtual bool exists(const std::filesystem::path& path) const = 0;

    /// All bytes of a regular file; a folder or a device in its place is an error.
    [[nodiscard]] virtual Result<std::string> read(const std::filesystem::path& path) const = 0;

    /// When the file was last written; absent when unknown.
    [[nodiscard]] virtual std::optional<Date> modificationDate(const std::filesystem::path& path) const = 0;

    /// Replaces the file's content in place: same inode, no temporary file; creates the file (readable only
    /// by its owner) and its missing folders. If there is no room for the new bytes, the old content stays
    /// intact.
    [[nodiscard]] virtual Result<Done> replace(const std::filesystem::path& path, std::string_view bytes,
                                               Durability durability) = 0;

    /// Writes a document where the user asked for it: replaces the file's content in place like `replace`,
    /// but a new file gets the user's default permissions, and a missing folder is an error.
    [[nodiscard]] virtual Result<Done> writeDocument(const std::filesystem::path& path,
                                                     std::string_view bytes) = 0;

    /// Creates the folder and its missing parents, each accessible only to its owner; an existing one is not
    /// an error.
    [[nodiscard]] virtual Result<Done> createFolder(const std::filesystem::path& path) = 0;

    /// Names of everything in the folder, in no particular order; none when it cannot be read.
    [[nodiscard]] virtual std::vector<std::string> namesIn(const std::filesystem::path& folder) const = 0;

    /// Everything in the folder, in no particular order; an error when it cannot be read. Any thread may call
    /// it.
    [[nodiscard]] virtual Result<std::vector<FolderEntry>>
    entriesIn(const std::filesystem::path& folder) const = 0;

    /// Removes the folder with everything in it; a missing one is not an error.
    [[nodiscard]] virtual Result<Done> removeFolder(const std::filesystem::path& folder) = 0;

    /// Removes one file; a missing one is an error.
    [[nodiscard]] virtual Result<Done> remove(const std::filesystem::path& path) = 0;
};

} // namespace brisklog
