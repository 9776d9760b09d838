#pragma once

#include "platform/Images.h"

namespace brisklog {

/// The size at which a picture is kept as the logo: at most 800 on its longer side, counting a pixel as a
/// point. The shorter side is scaled to match, rounded to the nearest whole pixel and at least one.
[[nodiscard]] PixelSize logoSize(PixelSize picture);

/// The picture's size scaled down to fit into the box with its aspect ratio kept; it is never enlarged.
[[nodiscard]] PixelSize fittedInto(PixelSize box, PixelSize picture);

} // namespace brisklog
