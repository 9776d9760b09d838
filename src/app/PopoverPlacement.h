#pragma once

#include "platform/StatusItem.h"

#include <QPoint>
#include <QRect>
#include <QSize>
#include <optional>

namespace brisklog {

/// The position of the popover's top left corner, in logical pixels: centred below an anchor in the upper
/// half of the screen, above one in the lower half, and at the top right without an anchor; always inside the
/// available area.
[[nodiscard]] QPoint popoverPlace(const std::optional<ScreenRectangle>& anchor, const QRect& available,
                                  const QSize& popover);

} // namespace brisklog
