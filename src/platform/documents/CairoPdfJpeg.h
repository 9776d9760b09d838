#pragma once

#include <optional>
#include <string_view>

namespace brisklog {

/// What a JPEG file says about itself.
struct JpegHeader {
    int width = 0;
    int height = 0;
    /// Grey or three colours of eight bits each, Huffman coded: what every PDF viewer shows as it is. No fill
    /// bytes in front of the frame, which Cairo stumbles over: it would draw a black area instead.
    bool isCommonKind = false;
    /// The picture's data are followed by the mark that ends it.
    bool isComplete = false;
};

/// Absent for bytes that are not a JPEG file with a picture in it.
[[nodiscard]] std::optional<JpegHeader> readJpegHeader(std::string_view encoded);

} // namespace brisklog
