#pragma once

#include "platform/Files.h"

#include <map>

namespace brisklog::fuzz {

/// Files in memory: a fuzzer writes thousands a second.
class MemoryFiles final : public Files {
public:
    [[nodiscard]] std::optional<std::filesystem::path> documentsFolder() const override {
        return "/documents";
    }

    [[nodiscard]] std::optional<std::filesystem::path> applicationSupportFolder() const override {
        return "/data";
    }

    [[nodiscard]] std::optional<std::filesystem::path> stateFolder() const override { return "/state"; }

    [[nodiscard]] std::optional<std::filesystem::path> picturesFolder() const override { return {}; }

    [[nodiscard]] std::optional<std::filesystem::path> homeFolder() const override { return {}; }

    [[nodiscard]] bool exists(const std::filesystem::path& path) const override {
        return contents.contains(path);
    }

    [[nodiscard]] Result<std::string> read(const std::filesystem::path& path) const override {
        const auto found = contents.find(path);
        return found == contents.end() ? Result<std::string>(missing) : found->second;
    }

    [[nodiscard]] std::optional<Date> modificationDate(const std::filesystem::path& /*path*/) const override {
        return Date{};
    }

    [[nodiscard]] Result<Done> replace(const std::filesystem::path& path, std::string_view bytes,
                                       Durability /*durability*/) override {
        contents[path] = bytes;
        return Done{};
    }

    [[nodiscard]] Result<Done> writeDocument(const std::filesystem::path& path,
                                             std::string_view bytes) override {
        return replace(path, bytes, Durability::leftToSystem);
    }

    [[nodiscard]] Result<Done> createFolder(const std::filesystem::path& /*path*/) override { return Done{}; }

    [[nodiscard]] std::vector<std::string> namesIn(const std::filesystem::path& /*folder*/) const override {
        return {};
    }

    [[nodiscard]] Result<std::vector<FolderEntry>>
    entriesIn(const std::filesystem::path& /*folder*/) const override {
        return missing;
    }

    [[nodiscard]] Result<Done> removeFolder(const std::filesystem::path& /*folder*/) override {
        return missing;
    }

    [[nodiscard]] Result<Done> remove(const std::filesystem::path& path) override {
        return contents.erase(path) == 0 ? Result<Done>(missing) : Done{};
    }

    std::map<std::filesystem::path, std::string> contents;

private:
    const Error missing{"no such file"};
};

} // namespace brisklog::fuzz
