#pragma once

#include <QByteArray>
#include <QSize>
#include <optional>

class QIODevice;

namespace brisklog {

/// What an image file says, before it is decoded, about what decoding it will take.
struct ImageHeader {
    /// The toolkit's name for the decoder.
    QByteArray format;
    /// Only of a GIF, for which the toolkit would read the whole file.
    std::optional<QSize> size;
    /// A JPEG that comes in one go can be shrunk band by band; everything else is held in memory as a whole.
    bool isShrunkInBands = false;
    /// A JPEG that goes over the same picture hundreds of times, to keep its reader busy for minutes.
    bool isEndless = false;
    /// A PNG of which a part says to be longer than the file is, or that has more parts than any program
    /// writes. The decoder takes as much memory as a part says it needs before it looks whether it is there.
    bool isOverstated = false;
    /// A JPEG in grey or three colours of eight bits each, Huffman coded, which every PDF viewer shows as it
    /// is. No fill bytes in front of the frame, which Cairo stumbles over: it would draw a black area
    /// instead.
    bool isOfCommonKind = false;
};

/// Absent for what is no PNG, JPEG, GIF, BMP or TIFF. Leaves the device wherever it had to look.
[[nodiscard]] std::optional<ImageHeader> readImageHeader(QIODevice& image);

} // namespace brisklog
