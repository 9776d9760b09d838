#pragma once

#include "platform/StatusItem.h"

#include <QPoint>
#include <QRect>
#include <QSize>
#include <optional>

namespace brisklog {

/// Where the popover's top left corner goes: centred under an anchor in the upper half of the screen, above
/// one in the lower half, always inside the available area; at its top right without an anchor. Logical
/// pixels.
[[nodiscard]] QPoint popoverPlace(const std::optional<ScreenRectangle>& anchor, const QRect& available,
                                  const QSize& popover);

} // namespace brisklog
