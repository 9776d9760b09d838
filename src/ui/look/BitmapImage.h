#pragma once

#include "platform/Images.h"

#include <QImage>

namespace brisklog {

/// The picture as the toolkit paints it; a null image for an empty one.
[[nodiscard]] QImage imageOf(const Bitmap& picture, qreal devicePixelRatio = 1);

} // namespace brisklog
