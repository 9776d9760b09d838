#include "platform/pictures/ImageHeader.h"

#include <QIODevice>
#include <QtEndian>
#include <algorithm>
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

/// No camera or program writes this many before the picture.
constexpr int mostJpegSegments = 4096;

/// Programs that write progressive JPEGs use about ten.
constexpr qsizetype mostScans = 100;

/// Programs divide the picture itself into parts of a few kilobytes.
constexpr int mostPngParts = 1 << 20;

constexpr uchar scanMarker = 0xDA;

/// One of the segments a JPEG is made of.
struct JpegSegment {
    uchar marker = 0;
    bool followsFillBytes = false;
    QByteArray begin;
};

/// What determines how a JPEG is read.
struct JpegBeginning {
    JpegSegment frame;
    JpegSegment firstScan;
    bool hasFillBytesUpToFrame = false;
};

bool holdsFrame(uchar marker) {
    constexpr uchar first = 0xC0;
    constexpr uchar last = 0xCF;
    const bool isTable = marker == 0xC4 || marker == 0xC8 || marker == 0xCC;
    return marker >= first && marker <= last && !isTable;
}

bool isStandaloneMarker(uchar marker) { return marker <= 0x01 || (marker >= 0xD0 && marker <= 0xD9); }

/// Decoders skip standalone markers and bytes between segments. No program writes them before the picture; a
/// file that has them is meant to show us a different picture than the decoder.
std::optional<JpegSegment> nextSegment(QIODevice& image) {
    constexpr qint64 longestBegin = 8;
    JpegSegment segment;
    char byte = 0;
    if (!image.getChar(&byte) || uchar(byte) != 0xFF)
        return std::nullopt;
    while (image.getChar(&byte) && uchar(byte) == 0xFF)
        segment.followsFillBytes = true;
    segment.marker = uchar(byte);
    const QByteArray length = image.read(2);
    if (isStandaloneMarker(segment.marker) || length.size() < 2)
        return std::nullopt;
    const qint64 rest = qFromBigEndian<quint16>(length.data()) - 2;
    const qint64 start = image.pos();
    segment.begin = image.read(std::clamp(rest, qint64{0}, longestBegin));
    return rest >= 0 && image.seek(start + rest) ? std::optional(segment) : std::nullopt;
}

std::optional<JpegBeginning> jpegBeginning(QIODevice& image) {
    JpegBeginning beginning;
    image.seek(2);
    for (int count = 0; count < mostJpegSegments; ++count) {
        const auto segment = nextSegment(image);
        if (!segment)
            return std::nullopt;
        const bool hasFrame = beginning.frame.marker != 0;
        beginning.hasFillBytesUpToFrame |= segment->followsFillBytes && !hasFrame;
        if (holdsFrame(segment->marker))
            beginning.frame = *segment;
        if (segment->marker == scanMarker) {
            beginning.firstScan = *segment;
            return hasFrame ? std::optional(beginning) : std::nullopt;
        }
    }
    return std::nullopt;
}

/// Follows the number of bits, the height and the width.
char colourCount(const JpegSegment& frame) {
    constexpr int place = 5;
    return frame.begin.size() > place ? frame.begin[place] : '\0';
}

/// Whether the first scan holds all colours completely.
bool isSingleScan(const JpegBeginning& jpeg) {
    const bool isSequential = jpeg.frame.marker == 0xC0 || jpeg.frame.marker == 0xC1;
    return isSequential && jpeg.firstScan.begin.startsWith(colourCount(jpeg.frame));
}

bool isWidelySupportedJpeg(const JpegBeginning& jpeg) {
    const bool isHuffmanCoded = jpeg.frame.marker <= 0xC2;
    const char colours = colourCount(jpeg.frame);
    return isHuffmanCoded && jpeg.frame.begin.startsWith('\x08') && (colours == 1 || colours == 3) &&
           !jpeg.hasFillBytesUpToFrame;
}

/// The marker that begins a scan cannot occur within its data.
bool hasTooManyScans(QIODevice& image) {
    constexpr QByteArrayView scanBegins("\xFF\xDA");
    constexpr qint64 chunkLength = 1 << 16;
    qsizetype scans = 0;
    image.seek(0);
    for (QByteArray chunk = image.read(chunkLength); !chunk.isEmpty() && scans <= mostScans;
         chunk = image.read(chunkLength)) {
        scans += chunk.count(scanBegins);
        // The marker may straddle the boundary to the next chunk.
        if (chunk.endsWith('\xFF') && chunk.size() == chunkLength)
            image.seek(image.pos() - 1);
    }
    return scans > mostScans;
}

bool pngClaimsTooMuchData(QIODevice& png) {
    constexpr qint64 signatureLength = 8;
    // Length and name, followed by the part's bytes and their checksum.
    constexpr qint64 headLength = 8;
    constexpr qint64 checksumLength = 4;
    qint64 at = signatureLength;
    for (int count = 0; count < mostPngParts; ++count) {
        const QByteArray head = png.seek(at) ? png.read(headLength) : QByteArray();
        if (head.size() < headLength || head.endsWith("IEND"))
            return false;
        at += headLength + qint64{qFromBigEndian<quint32>(head.data())} + checksumLength;
        if (at > png.size())
            return true;
    }
    return true;
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
        header.claimsTooMuchData = pngClaimsTooMuchData(image);
    if (header.format == "jpeg") {
        const auto jpeg = jpegBeginning(image);
        header.canScaleInBands = jpeg && isSingleScan(*jpeg);
        header.isWidelySupportedJpeg = jpeg && isWidelySupportedJpeg(*jpeg);
        header.hasTooManyScans = !header.canScaleInBands && hasTooManyScans(image);
    }
    return header;
}

} // namespace brisklog
