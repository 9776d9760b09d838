#pragma once

#include "platform/Images.h"

namespace brisklog {

/// How large a picture is kept as the logo: at most 800 on its longer side. A pixel counts as a point. The
/// new size is not rounded to anything handy; but a bitmap has whole pixels only, so the shorter side gets
/// the whole number nearest to its share, and at least one.
[[nodiscard]] PixelSize logoSize(PixelSize picture);

/// The picture's size where it must fit into the box without losing its shape; it is never enlarged.
[[nodiscard]] PixelSize fittedInto(PixelSize box, PixelSize picture);

} // namespace brisklog
