#include "foundation/Text.h"

#include <QString>
#include <algorithm>
#include <cstdint>
#include <cstring>
#include <unicode/uchar.h>
#include <unicode/utf8.h>
#include <utility>

namespace brisklog::text {
namespace {

// The library's macros narrow without a cast; the two functions keep that in one place.
#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Wconversion"

/// The character at `at`, which moves behind it; negative when the bytes are not UTF-8.
UChar32 nextCharacter(std::string_view bytes, int32_t& at) {
    UChar32 character = 0;
    U8_NEXT(bytes.data(), at, static_cast<int32_t>(bytes.size()), character);
    return character;
}

/// The character before `at`, which moves in front of it; negative when the bytes are not UTF-8.
UChar32 previousCharacter(std::string_view bytes, int32_t& at) {
    UChar32 character = 0;
    U8_PREV(bytes.data(), 0, at, character);
    return character;
}

#pragma GCC diagnostic pop

bool isWhiteSpace(UChar32 character) { return character >= 0 && u_isUWhiteSpace(character); }

/// How many ASCII characters the bytes begin with.
std::size_t leadingAscii(std::string_view bytes) {
    constexpr std::uint64_t highBits = 0x8080808080808080;
    std::size_t length = 0;
    for (std::uint64_t block = 0; bytes.size() - length >= sizeof block; length += sizeof block) {
        std::memcpy(&block, bytes.data() + length, sizeof block);
        if ((block & highBits) != 0)
            break;
    }
    while (length < bytes.size() && static_cast<unsigned char>(bytes[length]) < 0x80)
        ++length;
    return length;
}

} // namespace

std::string_view trimmed(std::string_view text) {
    int32_t begin = 0;
    auto end = static_cast<int32_t>(text.size());
    for (int32_t next = begin; begin < end && isWhiteSpace(nextCharacter(text, next));)
        begin = next;
    for (int32_t previous = end; end > begin && isWhiteSpace(previousCharacter(text, previous));)
        end = previous;
    return text.substr(static_cast<std::size_t>(begin), static_cast<std::size_t>(end - begin));
}

bool isValidUtf8(std::string_view bytes) {
    constexpr std::size_t longestCharacter = 4;
    for (std::size_t at = leadingAscii(bytes); at < bytes.size(); at += leadingAscii(bytes.substr(at))) {
        int32_t length = 0;
        if (nextCharacter(bytes.substr(at, longestCharacter), length) < 0)
            return false;
        at += static_cast<std::size_t>(length);
    }
    return true;
}

std::string asWellFormedUtf8(std::string bytes) {
    return isValidUtf8(bytes) ? std::move(bytes) : QString::fromStdString(bytes).toStdString();
}

std::string replacing(std::string text, char from, char to) {
    std::ranges::replace(text, from, to);
    return text;
}

std::string onOneLine(std::string text) {
    std::ranges::replace_if(
        text, [](char c) { return static_cast<unsigned char>(c) < 0x20 || c == 0x7F; }, ' ');
    return text;
}

} // namespace brisklog::text
