#include "platform/dialogs/PdfFileName.h"

#include "foundation/Text.h"

#include <algorithm>
#include <cctype>

namespace brisklog {
namespace {

constexpr std::string_view ending = ".pdf";
constexpr std::string_view substituteName = "Dokument";

/// The longest name that file systems allow, in bytes.
constexpr std::size_t longestName = 255;

bool hasEnding(std::string_view name) {
    if (name.size() < ending.size())
        return false;
    return std::ranges::equal(name.substr(name.size() - ending.size()), ending, {},
                              [](unsigned char c) { return std::tolower(c); });
}

std::string_view withoutEnding(std::string_view name) {
    return hasEnding(name) ? name.substr(0, name.size() - ending.size()) : name;
}

bool isForbidden(char c) {
    const auto byte = static_cast<unsigned char>(c);
    return c == '/' || byte < 0x20 || byte == 0x7F;
}

bool isBeyondAscii(char c) { return static_cast<unsigned char>(c) >= 0x80; }

/// Replaces the control characters beyond ASCII, U+0080 to U+009F, which are two bytes each.
void replaceC1Controls(std::string& name) {
    for (std::size_t at = 0; (at = name.find('\xC2', at)) != name.npos; ++at)
        if (at + 1 < name.size() && static_cast<unsigned char>(name[at + 1]) < 0xA0)
            name.replace(at, 2, "-");
}

std::string withoutForbidden(std::string_view suggestion) {
    std::string name(suggestion);
    std::ranges::replace_if(name, isForbidden, '-');
    if (text::isValidUtf8(name))
        replaceC1Controls(name);
    else
        std::ranges::replace_if(name, isBeyondAscii, '-');
    return name;
}

/// A leading dot hides a file, and a leading tilde means a home folder to some dialogs.
std::string withoutSpecialBeginning(std::string_view name) {
    name = text::trimmed(name);
    while (name.starts_with('.'))
        name = text::trimmed(name.substr(1));
    std::string result(name);
    if (result.starts_with('~'))
        result.front() = '-';
    return result;
}

std::string named(std::string_view stem, std::string_view addition) {
    const std::size_t room = longestName - ending.size() - addition.size();
    return std::string(text::beginning(stem, room)).append(addition).append(ending);
}

} // namespace

std::string pdfFileName(std::string_view suggestion) {
    const std::string name = withoutForbidden(suggestion);
    const std::string stem = withoutSpecialBeginning(withoutEnding(text::trimmed(name)));
    return named(stem.empty() ? substituteName : stem, "");
}

std::filesystem::path withPdfEnding(const std::filesystem::path& chosen,
                                    const std::function<bool(const std::filesystem::path&)>& isTaken) {
    const std::string name = chosen.filename().string();
    if (hasEnding(name))
        return chosen;
    auto file = chosen.parent_path() / named(name, "");
    for (int number = 2; isTaken(file); ++number)
        file.replace_filename(named(name, " " + std::to_string(number)));
    return file;
}

} // namespace brisklog
