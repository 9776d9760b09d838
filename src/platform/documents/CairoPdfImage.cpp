#include "platform/documents/CairoPdfImage.h"

#include "platform/documents/CairoPdfJpeg.h"
#include "platform/pictures/PngParts.h"

#include <QBuffer>
#include <QImageReader>
#include <algorithm>
#include <array>
#include <cstdlib>
#include <cstring>

namespace brisklog {
namespace {

using OwnedImage = std::unique_ptr<cairo_surface_t, DestroyImage>;

/// What the image reader itself is willing to hold in memory.
constexpr qint64 mostPixels = 32'000'000;

constexpr std::string_view pngSignature = "\x89PNG\r\n\x1a\n";

bool isKnownFormat(const QByteArray& format) {
    constexpr std::array known{"png", "jpeg", "gif", "bmp", "tiff"};
    return std::ranges::find(known, format.toStdString()) != known.end();
}

bool isReasonable(const QSize& size) {
    return !size.isEmpty() && qint64{size.width()} * size.height() <= mostPixels;
}

/// The JPEG's bytes as they are; the surface's own pixels are never looked at.
OwnedImage passedThrough(std::string_view jpeg, const QSize& size) {
    OwnedImage image(cairo_image_surface_create(CAIRO_FORMAT_RGB24, size.width(), size.height()));
    auto* const copy = static_cast<unsigned char*>(std::malloc(jpeg.size()));
    if (copy == nullptr)
        return nullptr;
    std::memcpy(copy, jpeg.data(), jpeg.size());
    const cairo_status_t status =
        cairo_surface_set_mime_data(image.get(), CAIRO_MIME_TYPE_JPEG, copy, jpeg.size(), std::free, copy);
    if (status == CAIRO_STATUS_SUCCESS)
        return image;
    std::free(copy);
    return nullptr;
}

OwnedImage copied(const QImage& decoded) {
    const bool hasAlpha = decoded.hasAlphaChannel();
    const QImage pixels =
        decoded.convertToFormat(hasAlpha ? QImage::Format_ARGB32_Premultiplied : QImage::Format_RGB32);
    OwnedImage image(cairo_image_surface_create(hasAlpha ? CAIRO_FORMAT_ARGB32 : CAIRO_FORMAT_RGB24,
                                                pixels.width(), pixels.height()));
    if (pixels.isNull() || cairo_surface_status(image.get()) != CAIRO_STATUS_SUCCESS)
        return nullptr;
    unsigned char* const target = cairo_image_surface_get_data(image.get());
    const auto stride = static_cast<std::size_t>(cairo_image_surface_get_stride(image.get()));
    for (int row = 0; row < pixels.height(); ++row)
        std::memcpy(target + stride * static_cast<std::size_t>(row), pixels.constScanLine(row),
                    static_cast<std::size_t>(pixels.width()) * 4);
    cairo_surface_mark_dirty(image.get());
    return image;
}

/// Whether the whole image can be decoded; an eighth of the size is enough to find out.
bool decodes(QImageReader& reader) {
    constexpr int shrink = 8;
    const QSize size = reader.size();
    reader.setScaledSize({std::max(1, size.width() / shrink), std::max(1, size.height() / shrink)});
    return !reader.read().isNull();
}

OwnedImage fromJpeg(std::string_view encoded, QImageReader& reader) {
    const auto header = readJpegHeader(encoded);
    if (!header || !header->isComplete)
        return nullptr;
    const QSize size = reader.size();
    const bool stands = reader.transformation() == QImageIOHandler::TransformationNone;
    const bool isOurs = header->isCommonKind && size == QSize(header->width, header->height);
    if (stands && isOurs)
        return decodes(reader) ? passedThrough(encoded, size) : nullptr;
    reader.setAutoTransform(true);
    return copied(reader.read());
}

} // namespace

OwnedImage decodedImage(std::string_view encoded) {
    QByteArray bytes = QByteArray::fromRawData(encoded.data(), static_cast<qsizetype>(encoded.size()));
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::ReadOnly);
    if (encoded.starts_with(pngSignature) && claimsMoreThanThereIs(buffer))
        return nullptr;
    buffer.seek(0);
    QImageReader reader(&buffer);
    if (!isKnownFormat(reader.format()) || !isReasonable(reader.size()))
        return nullptr;
    if (reader.format() == "jpeg")
        return fromJpeg(encoded, reader);
    const QImage decoded = reader.read();
    return decoded.isNull() ? nullptr : copied(decoded);
}

} // namespace brisklog
