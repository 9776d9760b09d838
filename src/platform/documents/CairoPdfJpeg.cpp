#include "platform/documents/CairoPdfJpeg.h"

#include <cstddef>

namespace brisklog {
namespace {

constexpr int startOfImage = 0xD8;
constexpr int startOfScan = 0xDA;
constexpr std::string_view endOfImage = "\xFF\xD9";

int byteAt(std::string_view bytes, std::size_t at) {
    return at < bytes.size() ? static_cast<unsigned char>(bytes[at]) : -1;
}

int twoBytesAt(std::string_view bytes, std::size_t at) {
    return at + 1 < bytes.size() ? byteAt(bytes, at) << 8 | byteAt(bytes, at + 1) : -1;
}

/// Marks that begin a description of the picture: 0xC0 to 0xCF without the tables among them.
bool beginsFrame(int marker) {
    return marker >= 0xC0 && marker <= 0xCF && marker != 0xC4 && marker != 0xC8 && marker != 0xCC;
}

/// Baseline, extended and progressive with Huffman coding.
bool isCommonFrame(int marker) { return marker >= 0xC0 && marker <= 0xC2; }

JpegHeader readFrame(std::string_view bytes, std::size_t segment, int marker) {
    const int bitsPerSample = byteAt(bytes, segment + 2);
    const int components = byteAt(bytes, segment + 7);
    JpegHeader header;
    header.height = twoBytesAt(bytes, segment + 3);
    header.width = twoBytesAt(bytes, segment + 5);
    header.isCommonKind = isCommonFrame(marker) && bitsPerSample == 8 && (components == 1 || components == 3);
    return header;
}

} // namespace

std::optional<JpegHeader> readJpegHeader(std::string_view encoded) {
    if (byteAt(encoded, 0) != 0xFF || byteAt(encoded, 1) != startOfImage)
        return std::nullopt;
    std::optional<JpegHeader> header;
    bool hasFillBytes = false;
    for (std::size_t at = 2; byteAt(encoded, at) == 0xFF;) {
        const int marker = byteAt(encoded, at + 1);
        if (marker == 0xFF) {
            hasFillBytes = true;
            ++at;
            continue;
        }
        const std::size_t segment = at + 2;
        if (marker == startOfScan) {
            if (header)
                header->isComplete = encoded.find(endOfImage, segment) != std::string_view::npos;
            return header;
        }
        if (beginsFrame(marker)) {
            header = readFrame(encoded, segment, marker);
            header->isCommonKind = header->isCommonKind && !hasFillBytes;
        }
        const int length = twoBytesAt(encoded, segment);
        if (length < 2)
            return std::nullopt;
        at = segment + static_cast<std::size_t>(length);
    }
    return std::nullopt;
}

} // namespace brisklog
