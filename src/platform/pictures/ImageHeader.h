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
    /// A JPEG that goes over the same picture hundreds of times, to keep its reader busy for minutes.
    bool isEndless = false;
    /// A PNG that makes its reader take memory for what is not there.
    bool isOverstated = false;
};

/// Absent for what is no PNG, JPEG, GIF, BMP or TIFF. Leaves the device wherever it had to look.
[[nodiscard]] std::optional<ImageHeader> readImageHeader(QIODevice& image);

} // namespace brisklog
