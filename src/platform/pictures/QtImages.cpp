#include "platform/pictures/QtImages.h"

#include "platform/pictures/ImageBytes.h"
#include "platform/pictures/ImageHeader.h"

#include <QBuffer>
#include <QColorSpace>
#include <QImageReader>
#include <cstring>

namespace brisklog {
namespace {

/// A decoder that holds the whole picture takes four bytes for each.
constexpr qint64 mostPixels = 32'000'000;
/// The largest cameras of the day stay below.
constexpr qint64 mostPixelsInBands = 256'000'000;
constexpr qint64 largestFile = qint64{512} << 20;

bool isTurned(const QImageReader& reader) {
    return reader.transformation().testFlag(QImageIOHandler::TransformationRotate90);
}

PixelSize pixelSize(const QSize& size) { return {size.width(), size.height()}; }

QSize toolkitSize(const PixelSize& size) { return {size.width, size.height}; }

/// Programs that write bare chromaticities and a gamma mean those of a screen, only less exactly.
bool areScreenColours(const QColorSpace& colours) {
    const auto primaries = colours.primaries();
    const bool isBare = primaries == QColorSpace::Primaries::Custom &&
                        colours.transferFunction() == QColorSpace::TransferFunction::Gamma;
    return !colours.isValid() || primaries == QColorSpace::Primaries::SRgb || isBare;
}

/// The colours of cameras and print shops would look dull if they were taken for those of a screen.
QImage inScreenColours(QImage picture) {
    picture.convertTo(QImage::Format_ARGB32);
    if (!areScreenColours(picture.colorSpace()))
        picture.convertToColorSpace(QColorSpace::SRgb);
    return picture;
}

Bitmap bitmapOf(const QImage& picture) {
    Bitmap bitmap{.size = pixelSize(picture.size()), .pixels = {}};
    bitmap.pixels.reserve(static_cast<std::size_t>(picture.width()) *
                          static_cast<std::size_t>(picture.height()));
    for (int row = 0; row < picture.height(); ++row) {
        const auto* const line = reinterpret_cast<const std::uint32_t*>(picture.constScanLine(row));
        bitmap.pixels.insert(bitmap.pixels.end(), line, line + picture.width());
    }
    return bitmap;
}

/// The upright picture in the size the rule gives; null when it cannot be decoded.
QImage readUpright(QImageReader& reader, const ImageHeader& header, const Images::SizeRule& rule) {
    if (!header.isShrunkInBands) {
        QImage picture = reader.read();
        if (picture.isNull())
            return picture;
        // A picture of few colours would be scaled with these alone.
        picture.convertTo(QImage::Format_ARGB32);
        const QSize wanted = toolkitSize(rule(pixelSize(picture.size())));
        return picture.size() == wanted
                   ? picture
                   : picture.scaled(wanted, Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
    }
    const QSize stored = reader.size();
    const QSize upright = isTurned(reader) ? stored.transposed() : stored;
    const QSize wanted = toolkitSize(rule(pixelSize(upright)));
    reader.setScaledSize(isTurned(reader) ? wanted.transposed() : wanted);
    return reader.read();
}

/// Only the decoder of BMP files reads exactly what it needs, and never complains.
bool isCutShort(const ImageBytes& bytes, const ImageHeader& header) {
    return header.format == "bmp" ? bytes.cameShort() : bytes.ranOut();
}

bool isTooLarge(const ImageBytes& bytes, const ImageHeader& header, const QImageReader& reader) {
    const QSize size = header.size ? *header.size : reader.size();
    const qint64 most = header.isShrunkInBands ? mostPixelsInBands : mostPixels;
    return bytes.size() > largestFile || qint64{size.width()} * size.height() > most;
}

Result<Bitmap> decodeFrom(ImageBytes& bytes, const Images::SizeRule& rule) {
    const auto header = readImageHeader(bytes);
    if (!header)
        return Error{"not an image"};
    bytes.startOver();
    QImageReader reader(&bytes, header->format);
    reader.setAutoDetectImageFormat(false);
    reader.setAutoTransform(true);
    if (header->isOverstated)
        return Error{"the image is cut short"};
    if (header->isEndless)
        return Error{"an image without end"};
    if (isTooLarge(bytes, *header, reader))
        return Error{"too large an image"};
    QImage picture = readUpright(reader, *header, rule);
    if (picture.isNull())
        return Error{reader.errorString().toStdString()};
    if (isCutShort(bytes, *header))
        return Error{"the image is cut short"};
    return bitmapOf(inScreenColours(std::move(picture)));
}

QImage toolkitImage(const Bitmap& picture) {
    QImage image(toolkitSize(picture.size), QImage::Format_ARGB32);
    for (int row = 0; row < image.height(); ++row)
        std::memcpy(image.scanLine(row),
                    picture.pixels.data() + std::size_t(row) * std::size_t(image.width()),
                    std::size_t(image.width()) * sizeof(std::uint32_t));
    return image;
}

} // namespace

Result<Bitmap> QtImages::read(const std::filesystem::path& file, const SizeRule& rule) const {
    const auto bytes = ImageBytes::ofFile(file);
    return bytes.failed() ? bytes.error() : decodeFrom(*bytes.value(), rule);
}

Result<Bitmap> QtImages::decode(std::string_view bytes, const SizeRule& rule) const {
    return decodeFrom(*ImageBytes::inMemory(bytes), rule);
}

Result<std::string> QtImages::encodePng(const Bitmap& picture) const {
    QImage image = toolkitImage(picture);
    // Without it every reader of the file would blend a picture that has nothing to blend.
    if (std::ranges::all_of(picture.pixels, [](std::uint32_t pixel) { return pixel >> 24 == 0xFF; }))
        image.convertTo(QImage::Format_RGB32);
    QByteArray bytes;
    QBuffer buffer(&bytes);
    if (image.isNull() || !buffer.open(QIODevice::WriteOnly) || !image.save(&buffer, "PNG"))
        return Error{"the image cannot be encoded as PNG"};
    return bytes.toStdString();
}

} // namespace brisklog
