// Image files on their way to the logo and to the picker's tiles.

#include "OffscreenApplication.h"

#include "platform/pictures/QtImages.h"
#include "profile/LogoImage.h"

namespace brisklog::fuzz {
namespace {

constexpr PixelSize tile{100, 80};

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

} // namespace

void tryInput(std::string_view bytes) {
    needApplication();
    const QtImages images;
    const auto thumbnail = images.decode(bytes, asTile);
    const auto logo = images.decode(bytes, logoSize);
    require(thumbnail.succeeded() == logo.succeeded(), "what has a thumbnail can be the logo");
    if (logo.failed())
        return;
    requireComplete(thumbnail.value(), tile);
    requireComplete(logo.value(), {800, 800});
    const auto kept = images.encodePng(logo.value());
    require(kept.succeeded(), "a logo can be kept");
    const auto again = images.decode(kept.value(), unchanged);
    require(again.succeeded() && again.value() == logo.value(), "the kept logo is the same picture");
}

} // namespace brisklog::fuzz
