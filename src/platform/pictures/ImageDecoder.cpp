#include "platform/pictures/ImageDecoder.h"

#include "platform/pictures/ImageHeader.h"

#include <QColorSpace>
#include <QImageReader>

namespace brisklog {
namespace {

/// For decoders that hold the whole picture, at four bytes per pixel.
constexpr qint64 mostPixels = 32'000'000;
/// Even the largest of today's cameras stay below this.
constexpr qint64 mostPixelsInBands = 256'000'000;
constexpr qint64 largestFile = qint64{512} << 20;

qint64 pixelCount(const QSize& size) { return qint64{size.width()} * size.height(); }

/// Programs that write only chromaticities and a gamma mean sRGB, just less precisely.
bool areScreenColours(const QColorSpace& colours) {
    const auto primaries = colours.primaries();
    const bool isBare = primaries == QColorSpace::Primaries::Custom &&
                        colours.transferFunction() == QColorSpace::TransferFunction::Gamma;
    return !colours.isValid() || primaries == QColorSpace::Primaries::SRgb || isBare;
}

/// Colours from cameras and print shops would look dull if they were treated as sRGB.
QImage inScreenColours(QImage picture) {
    picture.convertTo(QImage::Format_ARGB32);
    if (!areScreenColours(picture.colorSpace()))
        picture.convertToColorSpace(QColorSpace::SRgb);
    return picture;
}

QSize wantedSize(const QSize& upright, const Images::SizeRule& rule) {
    const PixelSize wanted = rule({upright.width(), upright.height()});
    return {wanted.width, wanted.height};
}

/// The size given by the rule, in the orientation in which the picture is stored.
QSize wantedSizeAsStored(const QImageReader& reader, const Images::SizeRule& rule) {
    const bool isTurned = reader.transformation().testFlag(QImageIOHandler::TransformationRotate90);
    const QSize stored = reader.size();
    return isTurned ? wantedSize(stored.transposed(), rule).transposed() : wantedSize(stored, rule);
}

bool isTooLarge(const ImageBytes& bytes, const ImageHeader& header, const QImageReader& reader,
                const Images::SizeRule& rule) {
    const QSize stored = header.size ? *header.size : reader.size();
    const QSize held = header.canScaleInBands ? wantedSizeAsStored(reader, rule) : stored;
    return bytes.size() > largestFile || pixelCount(stored) > mostPixelsInBands ||
           pixelCount(held) > mostPixels;
}

/// The upright picture in the size the rule gives; null when it cannot be decoded.
QImage readUpright(QImageReader& reader, const ImageHeader& header, const Images::SizeRule& rule) {
    reader.setAutoTransform(true);
    if (header.canScaleInBands) {
        reader.setScaledSize(wantedSizeAsStored(reader, rule));
        return reader.read();
    }
    QImage picture = reader.read();
    if (picture.isNull())
        return picture;
    // A picture with a palette would be scaled using only the palette's colours.
    picture.convertTo(QImage::Format_ARGB32);
    const QSize wanted = wantedSize(picture.size(), rule);
    return picture.size() == wanted ? picture
                                    : picture.scaled(wanted, Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
}

/// Only the BMP decoder reads exactly what it needs, and it never reports missing data.
bool isCutShort(const ImageBytes& bytes, const ImageHeader& header) {
    return header.format == "bmp" ? bytes.hadShortRead() : bytes.readPastEnd();
}

} // namespace

Result<DecodedImage> decodeImage(ImageBytes& bytes, const Images::SizeRule& rule) {
    const auto header = readImageHeader(bytes);
    if (!header)
        return Error{"not an image"};
    if (header->claimsTooMuchData)
        return Error{"the image is cut short"};
    if (header->hasTooManyScans)
        return Error{"an image without end"};
    bytes.startOver();
    QImageReader reader(&bytes, header->format);
    reader.setAutoDetectImageFormat(false);
    if (isTooLarge(bytes, *header, reader, rule))
        return Error{"too large an image"};
    QImage picture = readUpright(reader, *header, rule);
    if (picture.isNull())
        return Error{reader.errorString().toStdString()};
    if (isCutShort(bytes, *header))
        return Error{"the image is cut short"};
    const bool isStoredUpright = reader.transformation() == QImageIOHandler::TransformationNone;
    return DecodedImage{.picture = inScreenColours(std::move(picture)),
                        .canGoIntoPdf = header->isWidelySupportedJpeg && isStoredUpright};
}

} // namespace brisklog
