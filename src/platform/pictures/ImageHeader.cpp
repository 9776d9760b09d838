#include "platform/pictures/ImageHeader.h"

#include "platform/pictures/PngParts.h"

#include <QIODevice>
#include <QtEndian>
#include <array>

namespace brisklog {
namespace {

struct Signature {
    QByteArrayView begin;
    const char* format;
};

constexpr std::array signatures{
    Signature{"\x89PNG\r\n\x1a\n", "png"},
    Signature{"\xFF\xD8\xFF", "jpeg"},
    Signature{"GIF87a", "gif"},
    Signature{"GIF89a", "gif"},
    Signature{"BM", "bmp"},
    Signature{QByteArrayView("II*\0", 4), "tiff"},
    Signature{QByteArrayView("MM\0*", 4), "tiff"},
    Signature{QByteArrayView("II+\0", 4), "tiff"},
    Signature{QByteArrayView("MM\0+", 4), "tiff"},
};

constexpr qint64 longestSignature = 10;
/// No camera and no program writes as many before the picture.
constexpr int mostJpegSegments = 4096;

/// Programs that write a JPEG in several goes write ten or so.
constexpr qsizetype mostScans = 100;

/// One of the segments a JPEG is made of.
struct JpegSegment {
    uchar marker;
    QByteArray begin;
};

bool holdsFrame(uchar marker) {
    constexpr uchar first = 0xC0;
    constexpr uchar last = 0xCF;
    const bool isTable = marker == 0xC4 || marker == 0xC8 || marker == 0xCC;
    return marker >= first && marker <= last && !isTable;
}

bool isSequential(uchar frameMarker) { return frameMarker == 0xC0 || frameMarker == 0xC1; }

std::optional<JpegSegment> nextSegment(QIODevice& image) {
    constexpr qint64 longestBegin = 8;
    char byte = 0;
    while (image.getChar(&byte) && uchar(byte) == 0xFF) {
    }
    const QByteArray length = image.read(2);
    if (length.size() < 2)
        return std::nullopt;
    const qint64 rest = qFromBigEndian<quint16>(length.data()) - 2;
    const qint64 start = image.pos();
    JpegSegment segment{uchar(byte), image.read(std::clamp(rest, qint64{0}, longestBegin))};
    return rest >= 0 && image.seek(start + rest) ? std::optional(segment) : std::nullopt;
}

/// Whether all colours come in the first scan, once and for all.
bool comesInOneGo(QIODevice& image) {
    constexpr int colourCountInFrame = 5;
    std::optional<char> colours;
    image.seek(2);
    for (int count = 0; count < mostJpegSegments; ++count) {
        const auto segment = nextSegment(image);
        if (!segment)
            return false;
        if (holdsFrame(segment->marker)) {
            if (!isSequential(segment->marker) || segment->begin.size() <= colourCountInFrame)
                return false;
            colours = segment->begin[colourCountInFrame];
        }
        if (segment->marker == 0xDA)
            return colours && segment->begin.startsWith(*colours);
    }
    return false;
}

/// The mark that begins a scan cannot stand within its data.
bool hasTooManyScans(QIODevice& image) {
    constexpr QByteArrayView scanBegins("\xFF\xDA");
    constexpr qint64 chunkLength = 1 << 16;
    qsizetype scans = 0;
    image.seek(0);
    for (QByteArray chunk = image.read(chunkLength); !chunk.isEmpty() && scans <= mostScans;
         chunk = image.read(chunkLength)) {
        scans += chunk.count(scanBegins);
        // It may lie across the border to the next chunk.
        if (chunk.endsWith('\xFF') && chunk.size() == chunkLength)
            image.seek(image.pos() - 1);
    }
    return scans > mostScans;
}

QSize gifSize(const QByteArray& begin) {
    constexpr int widthAt = 6;
    constexpr int heightAt = 8;
    return {qFromLittleEndian<quint16>(begin.data() + widthAt),
            qFromLittleEndian<quint16>(begin.data() + heightAt)};
}

} // namespace

std::optional<ImageHeader> readImageHeader(QIODevice& image) {
    const QByteArray begin = image.read(longestSignature);
    const auto* const found = std::ranges::find_if(
        signatures, [&](const Signature& signature) { return begin.startsWith(signature.begin); });
    if (found == signatures.end() || begin.size() < longestSignature)
        return std::nullopt;
    ImageHeader header{.format = found->format, .size = {}};
    if (header.format == "gif")
        header.size = gifSize(begin);
    if (header.format == "png")
        header.isOverstated = claimsMoreThanThereIs(image);
    if (header.format == "jpeg") {
        header.isShrunkInBands = comesInOneGo(image);
        header.isEndless = !header.isShrunkInBands && hasTooManyScans(image);
    }
    return header;
}

} // namespace brisklog
