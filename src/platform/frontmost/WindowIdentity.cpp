#include "platform/frontmost/WindowIdentity.h"

#include "foundation/Text.h"

namespace brisklog {
namespace {

/// In bytes. It is written into the history at every change of the application, so no program may make it
/// grow at will.
constexpr std::size_t longestName = 256;

/// Older programs write their class in Latin-1.
std::string fromLatin1(std::string_view bytes) {
    std::string result;
    for (const char letter : bytes) {
        const auto code = static_cast<unsigned char>(letter);
        if (code < 0x80) {
            result += letter;
            continue;
        }
        result += static_cast<char>(0xC0U | (code >> 6U));
        result += static_cast<char>(0x80U | (code & 0x3FU));
    }
    return result;
}

bool isInsideCharacter(char byte) { return (static_cast<unsigned char>(byte) & 0xC0U) == 0x80; }

/// Cut between two characters.
std::string shortened(std::string text) {
    if (text.size() <= longestName)
        return text;
    std::size_t end = longestName;
    while (end > 0 && isInsideCharacter(text[end]))
        --end;
    text.resize(end);
    return text;
}

} // namespace

std::string windowName(std::string_view bytes) {
    std::string text = text::isValidUtf8(bytes) ? std::string(bytes) : fromLatin1(bytes);
    return std::string(text::trimmed(text::onOneLine(shortened(std::move(text)))));
}

} // namespace brisklog
