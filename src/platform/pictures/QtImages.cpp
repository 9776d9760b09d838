#include "platform/pictures/QtImages.h"

#include "platform/pictures/ImageDecoder.h"

#include <QBuffer>
#include <algorithm>
#include <cstring>

namespace brisklog {
namespace {

Bitmap bitmapOf(const QImage& picture) {
    Bitmap bitmap{.size = {picture.width(), picture.height()}, .pixels = {}};
    bitmap.pixels.reserve(static_cast<std::size_t>(picture.width()) *
                          static_cast<std::size_t>(picture.height()));
    for (int row = 0; row < picture.height(); ++row) {
        const auto* const line = reinterpret_cast<const std::uint32_t*>(picture.constScanLine(row));
        bitmap.pixels.insert(bitmap.pixels.end(), line, line + picture.width());
    }
    return bitmap;
}

Result<Bitmap> decodeFrom(ImageBytes& bytes, const Images::SizeRule& rule) {
    const auto decoded = decodeImage(bytes, rule);
    return decoded.failed() ? Result<Bitmap>(decoded.error()) : bitmapOf(decoded.value().picture);
}

QImage toolkitImage(const Bitmap& picture) {
    QImage image(picture.size.width, picture.size.height, QImage::Format_ARGB32);
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
    // Otherwise every reader of the file would blend a fully opaque picture.
    if (std::ranges::all_of(picture.pixels, [](std::uint32_t pixel) { return pixel >> 24 == 0xFF; }))
        image.convertTo(QImage::Format_RGB32);
    QByteArray bytes;
    QBuffer buffer(&bytes);
    if (image.isNull() || !buffer.open(QIODevice::WriteOnly) || !image.save(&buffer, "PNG"))
        return Error{"the image cannot be encoded as PNG"};
    return bytes.toStdString();
}

} // namespace brisklog
