// The logo's bytes on their way into a document.

#include "OffscreenApplication.h"

#include "platform/documents/CairoPdfImage.h"

#include <cairo-pdf.h>

namespace brisklog::fuzz {
namespace {

constexpr double pageWidth = 200;
constexpr double pageHeight = 100;

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

} // namespace

void tryInput(std::string_view bytes) {
    needApplication();
    const auto image = decodedImage(bytes);
    if (image == nullptr)
        return;
    require(cairo_surface_status(image.get()) == CAIRO_STATUS_SUCCESS, "an image is ready to be drawn");
    const int width = cairo_image_surface_get_width(image.get());
    const int height = cairo_image_surface_get_height(image.get());
    require(width > 0 && height > 0, "an image is not empty");
    require(drawn(image.get(), width, height) == CAIRO_STATUS_SUCCESS, "an image can be drawn");
}

} // namespace brisklog::fuzz
