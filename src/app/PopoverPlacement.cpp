#include "app/PopoverPlacement.h"

#include <algorithm>

namespace brisklog {
namespace {

/// Moves a span of `length` starting at `start` between the two edges; where it is too long, it starts at the
/// first.
int kept(int start, int length, int firstEdge, int lastEdge) {
    return std::max(firstEdge, std::min(start, lastEdge - length + 1));
}

} // namespace

QPoint popoverPlace(const std::optional<ScreenRectangle>& anchor, const QRect& available,
                    const QSize& popover) {
    if (!anchor)
        return {kept(available.right(), popover.width(), available.left(), available.right()),
                available.top()};
    const QPoint middle(anchor->x + anchor->width / 2, anchor->y + anchor->height / 2);
    const bool opensDownwards = middle.y() <= available.center().y();
    const int y = opensDownwards ? anchor->y + anchor->height : anchor->y - popover.height();
    return {kept(middle.x() - popover.width() / 2, popover.width(), available.left(), available.right()),
            kept(y, popover.height(), available.top(), available.bottom())};
}

} // namespace brisklog
