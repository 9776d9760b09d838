#include "foundation/Base64.h"

#include <algorithm>
#include <array>
#include <cstdint>

namespace brisklog::base64 {
namespace {

constexpr std::string_view alphabet = "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/";
constexpr std::uint8_t notADigit = 0xFF;

constexpr std::array<std::uint8_t, 256> makeValues() {
    std::array<std::uint8_t, 256> values{};
    values.fill(notADigit);
    for (std::size_t i = 0; i < alphabet.size(); ++i)
        values[static_cast<unsigned char>(alphabet[i])] = static_cast<std::uint8_t>(i);
    return values;
}

constexpr auto values = makeValues();

std::uint32_t valueOf(char digit) { return values[static_cast<unsigned char>(digit)]; }

/// The text without its padding.
std::string_view digitsOf(std::string_view text) {
    if (text.ends_with("=="))
        return text.substr(0, text.size() - 2);
    return text.ends_with('=') ? text.substr(0, text.size() - 1) : text;
}

/// Up to three bytes as one number, the first in the highest place.
std::uint32_t groupOf(std::string_view bytes) {
    std::uint32_t group = 0;
    for (std::size_t i = 0; i < 3; ++i)
        group = group << 8 | (i < bytes.size() ? static_cast<unsigned char>(bytes[i]) : 0);
    return group;
}

} // namespace

std::string encode(std::string_view bytes) {
    std::string text((bytes.size() + 2) / 3 * 4, '=');
    char* out = text.data();
    for (; !bytes.empty(); bytes.remove_prefix(std::min<std::size_t>(3, bytes.size()))) {
        const std::uint32_t group = groupOf(bytes);
        const std::size_t digits = std::min<std::size_t>(4, bytes.size() + 1);
        for (std::size_t i = 0; i < digits; ++i)
            out[i] = alphabet[group >> (18 - 6 * i) & 0x3F];
        out += 4;
    }
    return text;
}

std::optional<std::string> decode(std::string_view text) {
    if (!isWellFormed(text))
        return std::nullopt;
    const std::string_view digits = digitsOf(text);
    std::string bytes;
    bytes.reserve(text.size() / 4 * 3);
    std::uint32_t group = 0;
    for (std::size_t i = 0; i < digits.size(); ++i) {
        group = group << 6 | valueOf(digits[i]);
        if (const std::size_t bits = 6 * (i % 4 + 1); i % 4 != 0)
            bytes += static_cast<char>(group >> bits % 8 & 0xFF);
    }
    return bytes;
}

bool isWellFormed(std::string_view text) {
    return text.size() % 4 == 0 &&
           std::ranges::all_of(digitsOf(text), [](char digit) { return valueOf(digit) != notADigit; });
}

} // namespace brisklog::base64
