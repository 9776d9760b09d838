#include "platform/documents/CairoPdfImage.h"

#include "platform/pictures/ImageDecoder.h"

#include <cstdlib>
#include <cstring>

namespace brisklog {
namespace {

using OwnedImage = std::unique_ptr<cairo_surface_t, DestroyImage>;

/// Passes the JPEG's bytes through unchanged; the surface's own pixels are never used.
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

OwnedImage copied(QImage picture) {
    picture.convertTo(QImage::Format_ARGB32_Premultiplied);
    // Converting fails when memory is short.
    if (picture.isNull())
        return nullptr;
    OwnedImage image(cairo_image_surface_create(CAIRO_FORMAT_ARGB32, picture.width(), picture.height()));
    if (cairo_surface_status(image.get()) != CAIRO_STATUS_SUCCESS)
        return nullptr;
    unsigned char* const target = cairo_image_surface_get_data(image.get());
    const auto stride = static_cast<std::size_t>(cairo_image_surface_get_stride(image.get()));
    for (int row = 0; row < picture.height(); ++row)
        std::memcpy(target + stride * static_cast<std::size_t>(row), picture.constScanLine(row),
                    static_cast<std::size_t>(picture.width()) * 4);
    cairo_surface_mark_dirty(image.get());
    return image;
}

} // namespace

OwnedImage decodedImage(std::string_view encoded) {
    const auto bytes = ImageBytes::inMemory(encoded);
    auto decoded = decodeImage(*bytes, [](PixelSize size) { return size; });
    if (decoded.failed())
        return nullptr;
    auto [picture, canGoIntoPdf] = std::move(decoded).value();
    return canGoIntoPdf ? passedThrough(encoded, picture.size()) : copied(std::move(picture));
}

void showImage(cairo_t* drawing, cairo_surface_t* image) {
    cairo_set_source_surface(drawing, image, 0, 0);
    // Not painted: on a page that is still empty, Cairo would take that for the page's beginning and forget
    // the tags that were begun before.
    cairo_rectangle(drawing, 0, 0, cairo_image_surface_get_width(image),
                    cairo_image_surface_get_height(image));
    cairo_fill(drawing);
}

} // namespace brisklog
