#include "platform/panel/ClickPlace.h"

#include <algorithm>

namespace brisklog {
namespace {

/// The usual size of an icon in a panel.
constexpr int iconSize = 22;

/// Screens start at the same place in both kinds of pixels.
QRect inServerPixels(const ScaledScreen& screen) {
    return {screen.area.topLeft(), (screen.area.size().toSizeF() * screen.scale).toSize()};
}

QPoint inLogicalPixels(const QPoint& place, const QList<ScaledScreen>& screens) {
    const auto screen = std::ranges::find_if(
        screens, [&](const ScaledScreen& candidate) { return inServerPixels(candidate).contains(place); });
    if (screen == screens.end())
        return place;
    const QPoint origin = screen->area.topLeft();
    return origin + (QPointF(place - origin) / screen->scale).toPoint();
}

} // namespace

std::optional<QPoint> placeOfClick(const QPoint& reported, const std::optional<QPoint>& pointer,
                                   const QList<ScaledScreen>& screens) {
    if (pointer || reported.isNull())
        return pointer;
    return inLogicalPixels(reported, screens);
}

ScreenRectangle iconAround(const QPoint& place) {
    return {place.x() - iconSize / 2, place.y() - iconSize / 2, iconSize, iconSize};
}

} // namespace brisklog
