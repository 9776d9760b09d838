#pragma once

#include "Fuzzer.h"

#include <filesystem>

namespace brisklog::fuzz {

/// The user defaults' database file, in a folder of its own. Runners give a folder in memory as TMPDIR.
class DefaultsFile {
public:
    DefaultsFile();
    ~DefaultsFile();
    DefaultsFile(const DefaultsFile&) = delete;
    DefaultsFile& operator=(const DefaultsFile&) = delete;

    [[nodiscard]] std::filesystem::path path() const { return m_folder / "defaults.sqlite"; }

    /// Removes everything around the file and writes it anew.
    void reset(std::string_view bytes) const;

    /// Opens the file as the program does, reads, enumerates and writes whatever is there. However broken it
    /// is, the store must work in the end.
    void use() const;

private:
    std::filesystem::path m_folder;
};

} // namespace brisklog::fuzz
