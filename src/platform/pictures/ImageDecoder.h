#pragma once

#include "platform/Images.h"
#include "platform/pictures/ImageBytes.h"

#include <QImage>

namespace brisklog {

struct DecodedImage {
    /// Upright, in sRGB with 32 bits per pixel, not premultiplied.
    QImage picture;
    /// Whether the file is a JPEG that every PDF viewer displays correctly as it is.
    bool canGoIntoPdf = false;
};

/// The only way to decode an image file, with one set of limits, whether it is shown on the screen or in a
/// document. Fails for the reasons given in `Images`.
[[nodiscard]] Result<DecodedImage> decodeImage(ImageBytes& bytes, const Images::SizeRule& rule);

} // namespace brisklog
