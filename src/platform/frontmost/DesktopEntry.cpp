#include "platform/frontmost/DesktopEntry.h"

#include "foundation/Text.h"

#include <fstream>
#include <iterator>
#include <map>
#include <sstream>

namespace brisklog {
namespace {

using Values = std::map<std::string, std::string, std::less<>>;

/// Anything larger is not a desktop entry.
constexpr std::size_t largestEntry = 1 << 20;

/// The keys of the group that describes the application itself; its actions have groups of their own.
Values mainGroup(std::string_view text) {
    Values values;
    bool isMain = false;
    std::istringstream lines{std::string(text)};
    for (std::string line; std::getline(lines, line);) {
        const std::string_view trimmed = text::trimmed(line);
        if (trimmed.starts_with('['))
            isMain = trimmed == "[Desktop Entry]";
        const std::size_t equals = trimmed.find('=');
        if (!isMain || trimmed.starts_with('#') || equals == std::string_view::npos)
            continue;
        values.emplace(text::trimmed(trimmed.substr(0, equals)), text::trimmed(trimmed.substr(equals + 1)));
    }
    return values;
}

char unescapedCharacter(char letter) {
    switch (letter) {
    case 's':
    case 'n':
    case 't':
    case 'r':
        return ' ';
    default:
        return letter;
    }
}

std::string unescaped(std::string_view value) {
    std::string result;
    for (std::size_t index = 0; index < value.size(); ++index) {
        const bool isEscape = value[index] == '\\' && index + 1 < value.size();
        result += isEscape ? unescapedCharacter(value[++index]) : value[index];
    }
    return result;
}

std::string valueOf(const Values& values, std::string_view key) {
    const auto found = values.find(key);
    return found == values.end() ? std::string() : unescaped(found->second);
}

std::string germanName(const Values& values) {
    for (const char* const key : {"Name[de_DE]", "Name[de]", "Name"})
        if (auto name = valueOf(values, key); !name.empty())
            return text::onOneLine(text::asWellFormedUtf8(std::move(name)));
    return {};
}

std::string withoutQuotes(std::string word) {
    std::erase(word, '"');
    return word;
}

/// The first word that is neither "env" nor one of its settings, as in "env NAME=value program".
std::string programIn(const std::string& commandLine) {
    std::istringstream words(commandLine);
    for (std::string word; words >> word;) {
        std::string program = std::filesystem::path(withoutQuotes(word)).filename();
        if (program != "env" && word.find('=') == std::string::npos)
            return program;
    }
    return {};
}

} // namespace

std::optional<DesktopEntry> parseDesktopEntry(std::string id, std::string_view text) {
    const Values values = mainGroup(text);
    DesktopEntry entry{.id = std::move(id),
                       .name = germanName(values),
                       .icon = valueOf(values, "Icon"),
                       .startupWindowClass = valueOf(values, "StartupWMClass"),
                       .program = programIn(valueOf(values, "Exec")),
                       .isShown = valueOf(values, "NoDisplay") != "true"};
    if (valueOf(values, "Type") != "Application" || valueOf(values, "Hidden") == "true" || entry.name.empty())
        return std::nullopt;
    return entry;
}

std::optional<DesktopEntry> readDesktopEntry(std::string id, const std::filesystem::path& path) {
    std::error_code error;
    if (!std::filesystem::is_regular_file(path, error) ||
        std::filesystem::file_size(path, error) > largestEntry)
        return std::nullopt;
    std::ifstream file(path, std::ios::binary);
    const std::string content{std::istreambuf_iterator(file), {}};
    return parseDesktopEntry(std::move(id), content);
}

} // namespace brisklog
