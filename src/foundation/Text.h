#pragma once

#include <string>
#include <string_view>

namespace brisklog::text {

/// The text without white space and line breaks (in Unicode's sense) at both ends. Bytes that are not UTF-8
/// count as ordinary characters.
[[nodiscard]] std::string_view trimmed(std::string_view text);

/// Whether the bytes are well-formed UTF-8 (no surrogates, no overlong forms).
[[nodiscard]] bool isValidUtf8(std::string_view bytes);

/// The bytes as well-formed UTF-8: malformed sequences are replaced by U+FFFD.
[[nodiscard]] std::string asWellFormedUtf8(std::string bytes);

/// The beginning of the text, at most `length` bytes, without cutting through a character.
[[nodiscard]] std::string_view beginning(std::string_view text, std::size_t length);

/// The text with every occurrence of `from` replaced by `to`.
[[nodiscard]] std::string replacing(std::string text, char from, char to);

/// The text on one line: line breaks and other control characters become spaces.
[[nodiscard]] std::string onOneLine(std::string text);

} // namespace brisklog::text
