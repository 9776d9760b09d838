#pragma once

#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

namespace brisklog::test {

/// One line of the source tree.
struct SourceLine {
    /// Relative to the project's folder, such as "src/core/Project.h".
    std::string file;
    int number = 0;
    std::string text;

    /// "src/core/Project.h:5: #include …", for complaints.
    [[nodiscard]] std::string place() const;
};

/// The project's folder.
[[nodiscard]] std::filesystem::path projectFolder();

/// All sources and headers below a folder of the project, relative to it and sorted.
[[nodiscard]] std::vector<std::string> sourcesIn(const char* folder);

[[nodiscard]] std::vector<SourceLine> linesOf(const std::string& file);

/// The header that a line includes between these marks; empty when there is none.
[[nodiscard]] std::string includedBetween(char begin, char end, std::string_view line);

} // namespace brisklog::test
