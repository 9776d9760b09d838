#pragma once

#include <QByteArray>
#include <QSize>
#include <optional>

class QIODevice;

namespace brisklog {

/// What an image file reveals, before it is decoded, about what decoding it will take.
struct ImageHeader {
    /// The toolkit's name for the decoder.
    QByteArray format;
    /// Only for a GIF, where the toolkit would read the whole file to find the size.
    std::optional<QSize> size;
    /// Set for a JPEG with all data in one scan, which can be scaled down band by band; everything else is
    /// held in memory as a whole.
    bool canScaleInBands = false;
    /// Set for a JPEG with hundreds of scans of the same picture, made to keep its reader busy for minutes.
    bool hasTooManyScans = false;
    /// Set for a PNG with a part that claims to be longer than the file, or with more parts than any program
    /// writes. The decoder allocates the claimed size before it checks that the data is there.
    bool claimsTooMuchData = false;
    /// Set for a Huffman-coded JPEG in grey or three colours of eight bits each, which every PDF viewer can
    /// show as it is. Not set if there are fill bytes before the frame, for which Cairo would draw a black
    /// area.
    bool isWidelySupportedJpeg = false;
};

/// Absent if it is not a PNG, JPEG, GIF, BMP or TIFF. Leaves the device at an unspecified position.
[[nodiscard]] std::optional<ImageHeader> readImageHeader(QIODevice& image);

} // namespace brisklog
