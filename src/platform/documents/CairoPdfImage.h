#pragma once

#include <cairo.h>
#include <memory>
#include <string_view>

namespace brisklog {

struct DestroyImage {
    void operator()(cairo_surface_t* image) const { cairo_surface_destroy(image); }
};

/// An encoded image, upright and ready to be drawn; its width and height are never 0. A JPEG that every PDF
/// viewer displays correctly as it is goes into the document byte for byte. Null for the reasons for which
/// `decodeImage` fails; at full size, no image may have more than 32 million pixels.
[[nodiscard]] std::unique_ptr<cairo_surface_t, DestroyImage> decodedImage(std::string_view encoded);

/// Draws the image with its upper left corner at the origin, one pixel a unit.
void showImage(cairo_t* drawing, cairo_surface_t* image);

} // namespace brisklog
