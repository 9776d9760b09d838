#pragma once

#include <array>
#include <compare>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <string_view>

namespace brisklog {

/// An identifier of 128 bits; its text has 36 characters, upper case.
class Uuid {
public:
    /// The nil identifier, which no generated one equals.
    Uuid() = default;

    /// A new random identifier (version 4) from the system's random source.
    [[nodiscard]] static Uuid generate();

    /// Reads the 36-character form in either case; none for anything else.
    [[nodiscard]] static std::optional<Uuid> parse(std::string_view text);

    /// Writes the 36 characters of the upper-case form to `out`.
    void writeTo(char* out) const;

    [[nodiscard]] std::string text() const;

    auto operator<=>(const Uuid&) const = default;

private:
    friend struct std::hash<Uuid>;
    std::array<std::uint8_t, 16> m_bytes{};
};

} // namespace brisklog

template <>
struct std::hash<brisklog::Uuid> {
    std::size_t operator()(const brisklog::Uuid& id) const noexcept {
        // The bytes are random already: the first eight are as good a hash as any.
        std::size_t value = 0;
        for (std::size_t i = 0; i < sizeof value; ++i)
            value = value << 8 | id.m_bytes[i];
        return value;
    }
};
