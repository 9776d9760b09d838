#pragma once

#include "Fuzzer.h"

#include "foundation/JsonCoding.h"
#include "foundation/Text.h"

#include <functional>
#include <optional>

namespace brisklog::fuzz {

/// Decodes the bytes and requires that the value can be encoded, decodes to an equal value and then has the
/// same encoding. Absent when the bytes do not decode.
template <class T, class Same = std::equal_to<T>>
std::optional<T> roundTripped(std::string_view bytes, json::Layout layout, Same same = {}) {
    const auto decoded = json::decode<T>(bytes);
    if (decoded.failed()) {
        require(!decoded.error().description.empty(), "a refusal says why");
        return std::nullopt;
    }
    const auto encoded = json::encode(decoded.value(), layout);
    require(encoded.succeeded(), "what was decoded can be encoded");
    const auto again = json::decode<T>(encoded.value().bytes());
    require(again.succeeded(), "our own encoding decodes");
    require(same(again.value(), decoded.value()), "our own encoding holds the same value");
    const auto encodedAgain = json::encode(again.value(), layout);
    require(encodedAgain.succeeded() && encodedAgain.value().bytes() == encoded.value().bytes(),
            "the same value has the same encoding");
    return decoded.value();
}

/// A text handed to a screen or a document must be well-formed, whatever the file held.
inline void requireShowable(std::string_view text) {
    require(text::isValidUtf8(text), "a text to be shown is well-formed");
}

} // namespace brisklog::fuzz
