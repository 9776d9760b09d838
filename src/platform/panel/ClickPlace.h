#pragma once

#include "platform/StatusItem.h"

#include <QList>
#include <QPoint>
#include <QRect>
#include <optional>

namespace brisklog {

/// A screen in logical pixels, and how many of the display server's pixels one of them has.
struct ScaledScreen {
    QRect area;
    double scale = 1;
};

/// Where the user clicked, in logical pixels: the pointer's place where it is known, because some panels
/// report one relative to themselves or to the icon. Otherwise what the panel reports, in the display
/// server's pixels; 0, 0 from a panel that does not know. Absent when nobody knows.
[[nodiscard]] std::optional<QPoint> placeOfClick(const QPoint& reported, const std::optional<QPoint>& pointer,
                                                 const QList<ScaledScreen>& screens);

/// The icon at that place, whose size is not reported: 22 × 22 around it.
[[nodiscard]] ScreenRectangle iconAround(const QPoint& place);

} // namespace brisklog
