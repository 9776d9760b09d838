// Image files as they are decoded for the logo, the picker's tiles and a document.

#include "OffscreenApplication.h"

#include "platform/documents/CairoPdfImage.h"
#include "platform/pictures/QtImages.h"
#include "profile/LogoImage.h"

#include <cairo-pdf.h>

namespace brisklog::fuzz {
namespace {

constexpr PixelSize tile{100, 80};
constexpr double pageWidth = 200;
constexpr double pageHeight = 100;

PixelSize unchanged(PixelSize picture) { return picture; }

PixelSize asTile(PixelSize picture) { return fittedInto(tile, picture); }

std::size_t pixelCount(PixelSize size) {
    return static_cast<std::size_t>(size.width) * static_cast<std::size_t>(size.height);
}

void requireComplete(const Bitmap& picture, PixelSize most) {
    require(picture.size.width > 0 && picture.size.height > 0, "a picture is not empty");
    require(picture.size.width <= most.width && picture.size.height <= most.height, "a picture is shrunk");
    require(picture.pixels.size() == pixelCount(picture.size), "a picture has all its pixels");
}

void requireKept(const Images& images, const Bitmap& logo) {
    const auto kept = images.encodePng(logo);
    require(kept.succeeded(), "a logo can be kept");
    const auto again = images.decode(kept.value(), unchanged);
    require(again.succeeded() && again.value() == logo, "the kept logo is the same picture");
}

cairo_status_t dropBytes(void* /*closure*/, const unsigned char* /*bytes*/, unsigned /*count*/) {
    return CAIRO_STATUS_SUCCESS;
}

cairo_status_t drawn(cairo_surface_t* image, int width, int height) {
    cairo_surface_t* const page =
        cairo_pdf_surface_create_for_stream(dropBytes, nullptr, pageWidth, pageHeight);
    cairo_t* const context = cairo_create(page);
    cairo_scale(context, pageWidth / width, pageHeight / height);
    cairo_set_source_surface(context, image, 0, 0);
    cairo_paint(context);
    cairo_destroy(context);
    cairo_surface_finish(page);
    const cairo_status_t status = cairo_surface_status(page);
    cairo_surface_destroy(page);
    return status;
}

void requireDrawable(cairo_surface_t* image) {
    require(cairo_surface_status(image) == CAIRO_STATUS_SUCCESS, "an image is ready to be drawn");
    const int width = cairo_image_surface_get_width(image);
    const int height = cairo_image_surface_get_height(image);
    require(width > 0 && height > 0, "an image is not empty");
    require(drawn(image, width, height) == CAIRO_STATUS_SUCCESS, "an image can be drawn");
}

} // namespace

void tryInput(std::string_view bytes) {
    ensureApplication();
    const QtImages images;
    const auto thumbnail = images.decode(bytes, asTile);
    const auto logo = images.decode(bytes, logoSize);
    const auto inDocument = decodedImage(bytes);
    require(thumbnail.succeeded() == logo.succeeded(), "what has a thumbnail can be the logo");
    require(inDocument == nullptr || logo.succeeded(), "the picker accepts what a document shows");
    if (inDocument != nullptr)
        requireDrawable(inDocument.get());
    if (logo.failed())
        return;
    requireComplete(thumbnail.value(), tile);
    requireComplete(logo.value(), {800, 800});
    requireKept(images, logo.value());
}

} // namespace brisklog::fuzz
