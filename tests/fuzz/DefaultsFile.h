#pragma once

#include "Fuzzer.h"

#include <filesystem>

namespace brisklog::fuzz {

/// The user defaults' database file, in a temporary folder. `tests/fuzz/run` sets TMPDIR to memory where it
/// can.
class DefaultsFile {
public:
    DefaultsFile();
    ~DefaultsFile();
    DefaultsFile(const DefaultsFile&) = delete;
    DefaultsFile& operator=(const DefaultsFile&) = delete;

    [[nodiscard]] std::filesystem::path path() const { return m_folder / "defaults.sqlite"; }

    /// Empties the folder and writes the file anew.
    void reset(std::string_view bytes) const;

    /// Opens the file as the program does, reads, enumerates and writes whatever is there. However broken it
    /// is, the store must work afterwards.
    void use() const;

private:
    std::filesystem::path m_folder;
};

} // namespace brisklog::fuzz
