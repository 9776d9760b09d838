#pragma once

#include "platform/Images.h"
#include "platform/pictures/ImageBytes.h"

#include <QImage>

namespace brisklog {

struct DecodedImage {
    /// Upright, in sRGB with 32 bits a pixel, not premultiplied.
    QImage picture;
    /// The file is a JPEG that every PDF viewer shows as the picture is to be seen.
    bool canGoIntoPdf = false;
};

/// The one way from an image file to its picture, and the one set of limits: whoever shows image files, on
/// the screen or in documents, comes by here. An error for what `Images` calls one.
[[nodiscard]] Result<DecodedImage> decodeImage(ImageBytes& bytes, const Images::SizeRule& rule);

} // namespace brisklog
