#pragma once

#include <QByteArray>
#include <QSize>
#include <optional>

class QIODevice;

namespace brisklog {

/// What an image file's first bytes say about what decoding it will take.
struct ImageHeader {
    /// The toolkit's name for the decoder.
    QByteArray format;
    /// Only of a GIF, for which the toolkit would read the whole file.
    std::optional<QSize> size;
    /// A JPEG that comes in one go can be shrunk band by band; everything else is held in memory as a whole.
    bool isShrunkInBands = false;
};

/// Absent for what is no PNG, JPEG, GIF, BMP or TIFF. The device is at its beginning afterwards.
[[nodiscard]] std::optional<ImageHeader> readImageHeader(QIODevice& image);

} // namespace brisklog
