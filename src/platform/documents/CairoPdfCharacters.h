#pragma once

#include <string>
#include <string_view>

namespace brisklog {

/// The text on one line, in characters that can be drawn: bytes that are not UTF-8 and code points that are
/// not characters become U+FFFD, control characters and line breaks become spaces. The originals would make
/// Cairo silently drop everything drawn afterwards.
[[nodiscard]] std::string printableLine(std::string_view text);

/// The same, but line breaks of any kind become line feeds.
[[nodiscard]] std::string printableLines(std::string_view text);

} // namespace brisklog
