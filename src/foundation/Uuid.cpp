#include "foundation/Uuid.h"

#include <cstring>
#include <random>

namespace brisklog {
namespace {

constexpr std::size_t textLength = 36;
constexpr std::uint8_t notAHexDigit = 0xFF;

constexpr std::array<std::uint8_t, 256> makeHexValues() {
    std::array<std::uint8_t, 256> values{};
    values.fill(notAHexDigit);
    for (std::uint8_t digit = 0; digit < 10; ++digit)
        values['0' + std::size_t{digit}] = digit;
    for (std::uint8_t letter = 0; letter < 6; ++letter)
        values['a' + std::size_t{letter}] = values['A' + std::size_t{letter}] =
            static_cast<std::uint8_t>(10 + letter);
    return values;
}

constexpr auto hexValues = makeHexValues();

constexpr bool hyphenBefore(std::size_t byteIndex) {
    return byteIndex == 4 || byteIndex == 6 || byteIndex == 8 || byteIndex == 10;
}

} // namespace

Uuid Uuid::generate() {
    static std::random_device source;
    Uuid id;
    for (std::size_t i = 0; i < id.m_bytes.size(); i += sizeof(unsigned)) {
        const unsigned random = source();
        std::memcpy(&id.m_bytes[i], &random, sizeof random);
    }
    id.m_bytes[6] = static_cast<std::uint8_t>((id.m_bytes[6] & 0x0F) | 0x40);
    id.m_bytes[8] = static_cast<std::uint8_t>((id.m_bytes[8] & 0x3F) | 0x80);
    return id;
}

std::optional<Uuid> Uuid::parse(std::string_view text) {
    if (text.size() != textLength)
        return std::nullopt;
    Uuid id;
    std::size_t position = 0;
    for (std::size_t i = 0; i < id.m_bytes.size(); ++i) {
        if (hyphenBefore(i) && text[position++] != '-')
            return std::nullopt;
        const std::uint8_t high = hexValues[static_cast<unsigned char>(text[position])];
        const std::uint8_t low = hexValues[static_cast<unsigned char>(text[position + 1])];
        if (high == notAHexDigit || low == notAHexDigit)
            return std::nullopt;
        id.m_bytes[i] = static_cast<std::uint8_t>(high << 4 | low);
        position += 2;
    }
    return id;
}

void Uuid::writeTo(char* out) const {
    constexpr char digits[] = "0123456789ABCDEF";
    for (std::size_t i = 0; i < m_bytes.size(); ++i) {
        if (hyphenBefore(i))
            *out++ = '-';
        *out++ = digits[m_bytes[i] >> 4];
        *out++ = digits[m_bytes[i] & 0x0F];
    }
}

std::string Uuid::text() const {
    std::string text(textLength, '\0');
    writeTo(text.data());
    return text;
}

} // namespace brisklog
