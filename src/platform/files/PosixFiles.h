#pragma once

#include "platform/Files.h"

namespace brisklog {

/// Files on this machine; the folders are those of the desktop (XDG base directories and user directories).
class PosixFiles final : public Files {
public:
    [[nodiscard]] std::optional<std::filesystem::path> documentsFolder() const override;
    [[nodiscard]] std::optional<std::filesystem::path> applicationSupportFolder() const override;
    [[nodiscard]] std::optional<std::filesystem::path> stateFolder() const override;
    [[nodiscard]] std::optional<std::filesystem::path> picturesFolder() const override;
    [[nodiscard]] std::optional<std::filesystem::path> homeFolder() const override;
    /// The program's own folder in the user's configuration; absent when the user has no home.
    [[nodiscard]] static std::optional<std::filesystem::path> configurationFolder();

    [[nodiscard]] bool exists(const std::filesystem::path& path) const override;
    [[nodiscard]] Result<std::string> read(const std::filesystem::path& path) const override;
    [[nodiscard]] std::optional<Date> modificationDate(const std::filesystem::path& path) const override;
    [[nodiscard]] Result<Done> replace(const std::filesystem::path& path, std::string_view bytes,
                                       Durability durability) override;
    [[nodiscard]] Result<Done> writeDocument(const std::filesystem::path& path,
                                             std::string_view bytes) override;
    [[nodiscard]] Result<Done> createFolder(const std::filesystem::path& path) override;
    [[nodiscard]] std::vector<std::string> namesIn(const std::filesystem::path& folder) const override;
    [[nodiscard]] Result<std::vector<FolderEntry>>
    entriesIn(const std::filesystem::path& folder) const override;
    [[nodiscard]] Result<Done> removeFolder(const std::filesystem::path& folder) override;
    [[nodiscard]] Result<Done> remove(const std::filesystem::path& path) override;
};

} // namespace brisklog
