#include "SourceTree.h"

#include <algorithm>
#include <fstream>

namespace brisklog::test {

namespace fs = std::filesystem;

std::string SourceLine::place() const { return file + ":" + std::to_string(number) + ": " + text; }

fs::path projectFolder() { return BRISKLOG_SOURCE_FOLDER; }

std::vector<std::string> sourcesIn(const char* folder) {
    std::vector<std::string> sources;
    if (!fs::exists(projectFolder() / folder))
        return sources;
    for (const auto& entry : fs::recursive_directory_iterator(projectFolder() / folder)) {
        const auto extension = entry.path().extension();
        if (entry.is_regular_file() && (extension == ".cpp" || extension == ".h"))
            sources.push_back(entry.path().lexically_relative(projectFolder()));
    }
    std::ranges::sort(sources);
    return sources;
}

std::vector<SourceLine> linesOf(const std::string& file) {
    std::vector<SourceLine> lines;
    std::ifstream stream(projectFolder() / file);
    for (std::string text; std::getline(stream, text);)
        lines.push_back({file, static_cast<int>(lines.size()) + 1, text});
    return lines;
}

std::string includedBetween(char begin, char end, std::string_view line) {
    const std::string start = std::string("#include ") + begin;
    if (!line.starts_with(start))
        return {};
    line.remove_prefix(start.size());
    return std::string(line.substr(0, line.find(end)));
}

} // namespace brisklog::test
