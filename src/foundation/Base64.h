#pragma once

#include <optional>
#include <string>
#include <string_view>

/// Bytes as text: the standard alphabet, padded, on one line.
namespace brisklog::base64 {

[[nodiscard]] std::string encode(std::string_view bytes);

/// The bytes that the text stands for; absent when it is no Base64.
[[nodiscard]] std::optional<std::string> decode(std::string_view text);

/// Whether the text stands for bytes: whole groups of four, padding at the end alone.
[[nodiscard]] bool isWellFormed(std::string_view text);

} // namespace brisklog::base64
