#include "foundation/Text.h"

#include <QByteArrayView>
#include <QString>
#include <algorithm>
#include <cstdint>
#include <unicode/uchar.h>
#include <unicode/utf8.h>
#include <utility>

namespace brisklog::text {
namespace {

// ICU's macros narrow without a cast; these two functions keep that in one place.
#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Wconversion"

/// The character at `at`, which is moved past it; negative when the bytes are not UTF-8.
UChar32 nextCharacter(std::string_view bytes, int32_t& at) {
    UChar32 character = 0;
    U8_NEXT(bytes.data(), at, static_cast<int32_t>(bytes.size()), character);
    return character;
}

/// The character before `at`, which is moved to its start; negative when the bytes are not UTF-8.
UChar32 previousCharacter(std::string_view bytes, int32_t& at) {
    UChar32 character = 0;
    U8_PREV(bytes.data(), 0, at, character);
    return character;
}

#pragma GCC diagnostic pop

/// Where the character that contains the byte at `place` begins; `place` itself when the bytes are not UTF-8.
std::size_t beginOfCharacter(std::string_view bytes, std::size_t place) {
    const auto* const units = reinterpret_cast<const std::uint8_t*>(bytes.data());
    auto begin = static_cast<int32_t>(place);
    U8_SET_CP_START(units, 0, begin);
    return static_cast<std::size_t>(begin);
}

bool isWhiteSpace(UChar32 character) { return character >= 0 && u_isUWhiteSpace(character); }

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
    return QByteArrayView(bytes.data(), static_cast<qsizetype>(bytes.size())).isValidUtf8();
}

std::string asWellFormedUtf8(std::string bytes) {
    return isValidUtf8(bytes) ? std::move(bytes) : QString::fromStdString(bytes).toStdString();
}

std::string_view beginning(std::string_view text, std::size_t length) {
    return text.size() <= length ? text : text.substr(0, beginOfCharacter(text, length));
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
