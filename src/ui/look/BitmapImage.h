#pragma once

#include "platform/Images.h"

#include <QImage>

namespace brisklog {

/// The picture as a toolkit image; a null image for an empty picture.
[[nodiscard]] QImage imageOf(const Bitmap& picture, qreal devicePixelRatio = 1);

} // namespace brisklog
