#pragma once

#include <string>
#include <string_view>

namespace brisklog {

/// The text on one line, in characters that can be drawn: bytes that are not UTF-8 and code points that stand
/// for no character become U+FFFD, control characters and line breaks become blanks. Anything else would make
/// Cairo drop all that is drawn afterwards, without a word.
[[nodiscard]] std::string printableLine(std::string_view text);

/// The same with line breaks kept, whatever they were, as line feeds.
[[nodiscard]] std::string printableLines(std::string_view text);

} // namespace brisklog
