#pragma once

#include "platform/files/PosixFiles.h"

#include <string>
#include <vector>

namespace brisklog::test {

/// The real files, with a record of what was written; can be told to fail every write.
class RecordingFiles final : public Files {
public:
    [[nodiscard]] std::optional<std::filesystem::path> documentsFolder() const override {
        return hasHome ? m_files.documentsFolder() : std::nullopt;
    }

    [[nodiscard]] std::optional<std::filesystem::path> applicationSupportFolder() const override {
        return hasHome ? m_files.applicationSupportFolder() : std::nullopt;
    }

    [[nodiscard]] std::optional<std::filesystem::path> stateFolder() const override {
        return hasHome ? m_files.stateFolder() : std::nullopt;
    }

    [[nodiscard]] std::optional<std::filesystem::path> picturesFolder() const override {
        return hasHome ? m_files.picturesFolder() : std::nullopt;
    }

    [[nodiscard]] std::optional<std::filesystem::path> homeFolder() const override {
        return hasHome ? m_files.homeFolder() : std::nullopt;
    }

    [[nodiscard]] bool exists(const std::filesystem::path& path) const override {
        return m_files.exists(path);
    }

    [[nodiscard]] Result<std::string> read(const std::filesystem::path& path) const override {
        return m_files.read(path);
    }

    [[nodiscard]] std::optional<Date> modificationDate(const std::filesystem::path& path) const override {
        return m_files.modificationDate(path);
    }

    [[nodiscard]] Result<Done> replace(const std::filesystem::path& path, std::string_view bytes,
                                       Durability durability) override {
        written.push_back(nameOf(path));
        if (writesFail)
            return Error{path.string() + ": No space left on device"};
        return m_files.replace(path, bytes, durability);
    }

    [[nodiscard]] Result<Done> writeDocument(const std::filesystem::path& path,
                                             std::string_view bytes) override {
        written.push_back(nameOf(path));
        if (writesFail)
            return Error{path.string() + ": No space left on device"};
        return m_files.writeDocument(path, bytes);
    }

    [[nodiscard]] Result<Done> createFolder(const std::filesystem::path& path) override {
        if (writesFail)
            return Error{path.string() + ": No space left on device"};
        return m_files.createFolder(path);
    }

    [[nodiscard]] std::vector<std::string> namesIn(const std::filesystem::path& folder) const override {
        return m_files.namesIn(folder);
    }

    [[nodiscard]] Result<std::vector<FolderEntry>>
    entriesIn(const std::filesystem::path& folder) const override {
        return m_files.entriesIn(folder);
    }

    [[nodiscard]] Result<Done> removeFolder(const std::filesystem::path& folder) override {
        return m_files.removeFolder(folder);
    }

    [[nodiscard]] Result<Done> remove(const std::filesystem::path& path) override {
        return m_files.remove(path);
    }

    /// Names of the files written, in order, including failed attempts; daily copies as "backups/DAY/NAME".
    std::vector<std::string> written;
    bool writesFail = false;
    bool hasHome = true;

private:
    static std::string nameOf(const std::filesystem::path& path) {
        const auto folder = path.parent_path();
        const bool isDailyCopy = folder.parent_path().filename() == "backups";
        return isDailyCopy ? path.lexically_relative(folder.parent_path().parent_path()).string()
                           : path.filename().string();
    }

    PosixFiles m_files;
};

} // namespace brisklog::test
