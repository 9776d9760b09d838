#include "foundation/JsonEncoder.h"

#include "foundation/Text.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <cstring>

namespace brisklog::json {
namespace {

/// Between these, numbers are written without an exponent; dates and amounts are well within these limits.
constexpr double smallestPlain = 1e-5;
constexpr double largestPlain = 1e17;
/// More than any finite number needs.
constexpr std::size_t longestNumber = 32;

bool isPlain(double number) {
    const double size = std::abs(number);
    return size == 0 || (size >= smallestPlain && size < largestPlain);
}

bool needsEscape(char character) {
    return static_cast<unsigned char>(character) < 0x20 || character == '"' || character == '\\';
}

/// The letter of the short escape; 0 for characters that have none.
char escapeLetter(char character) {
    switch (character) {
    case '"':
    case '\\':
        return character;
    case '\b':
        return 'b';
    case '\f':
        return 'f';
    case '\n':
        return 'n';
    case '\r':
        return 'r';
    case '\t':
        return 't';
    default:
        return 0;
    }
}

} // namespace

void Encoder::put(std::string_view bytes) { std::memcpy(room(bytes.size()), bytes.data(), bytes.size()); }

char* Encoder::breakLine(char* out) const {
    if (!m_isPretty)
        return out;
    *out = '\n';
    return std::fill_n(out + 1, 2 * m_depth, ' ');
}

void Encoder::begin(char bracket) {
    *room(1) = bracket;
    ++m_depth;
    m_isFirst = true;
}

void Encoder::end(char bracket) {
    --m_depth;
    // Empty lists and records stay on one line.
    if (!m_isFirst)
        breakLine(room(lineBreakLength()));
    *room(1) = bracket;
    m_isFirst = false;
}

void Encoder::nextElement() {
    if (!m_isFirst)
        *room(1) = ',';
    breakLine(room(lineBreakLength()));
    m_isFirst = false;
}

void Encoder::key(std::string_view key) {
    nextElement();
    char* out = room(key.size() + (m_isPretty ? 4 : 3));
    *out++ = '"';
    out = std::ranges::copy(key, out).out;
    *out++ = '"';
    *out++ = ':';
    if (m_isPretty)
        *out = ' ';
}

void Encoder::text(std::string_view text) {
    if (!text::isValidUtf8(text)) {
        m_reason = "text is not well-formed UTF-8";
        return;
    }
    *room(1) = '"';
    while (!text.empty()) {
        const auto plain = static_cast<std::size_t>(std::ranges::find_if(text, needsEscape) - text.begin());
        put(text.substr(0, plain));
        text.remove_prefix(plain);
        if (text.empty())
            break;
        putEscaped(text.front());
        text.remove_prefix(1);
    }
    *room(1) = '"';
}

void Encoder::putEscaped(char character) {
    constexpr char digits[] = "0123456789ABCDEF";
    const auto code = static_cast<unsigned char>(character);
    const std::array hexadecimal{'\\', 'u', '0', '0', digits[code >> 4], digits[code & 0x0F]};
    const std::array abbreviated{'\\', escapeLetter(character)};
    if (abbreviated.back() != 0)
        put({abbreviated.data(), abbreviated.size()});
    else
        put({hexadecimal.data(), hexadecimal.size()});
}

void Encoder::plainText(std::string_view text) {
    char* const out = room(text.size() + 2);
    out[0] = '"';
    *std::ranges::copy(text, out + 1).out = '"';
}

void Encoder::number(double number) {
    if (!std::isfinite(number)) {
        m_reason = "number is not finite";
        return;
    }
    // The fewest digits that read back as exactly the same number.
    char* const out = room(longestNumber);
    const auto form = isPlain(number) ? std::chars_format::fixed : std::chars_format::scientific;
    char* end = std::to_chars(out, out + longestNumber, number, form).ptr;
    if (form == std::chars_format::fixed && std::find(out, end, '.') == end) {
        *end++ = '.';
        *end++ = '0';
    }
    m_buffer.Pop(longestNumber - static_cast<std::size_t>(end - out));
}

void Encoder::beginAnew() {
    m_buffer.Clear();
    m_isFirst = true;
    m_depth = 0;
    m_reason = nullptr;
    m_path.clear();
}

std::string Encoder::error() const {
    const std::string path = m_path.starts_with('.') ? m_path.substr(1) : m_path;
    return path.empty() ? m_reason : path + ": " + m_reason;
}

} // namespace brisklog::json
