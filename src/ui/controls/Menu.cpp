#include "ui/controls/Menu.h"

#include "ui/controls/MenuPopup.h"

#include <QScreen>
#include <QWidget>
#include <algorithm>

namespace brisklog {
namespace {

constexpr int gap = 4;

/// Under the anchor, above it where there is no room, and inside the screen in any case.
QPoint placeFor(const QWidget& anchor, const QSize& size, MenuContent::Place place) {
    const QRect available = anchor.screen()->availableGeometry();
    const QPoint below = anchor.mapToGlobal(QPoint(0, anchor.height() + gap));
    const QPoint above = anchor.mapToGlobal(QPoint(0, -gap - size.height()));
    const QWidget& window = *anchor.window();
    const int middle = window.mapToGlobal(QPoint(window.width() / 2, 0)).x() - size.width() / 2;
    const bool hasRoomBelow =
        below.y() + size.height() <= available.bottom() + 1 || above.y() < available.top();
    const int left = place == MenuContent::Place::middleOfWindow ? middle : below.x();
    const int top = hasRoomBelow ? below.y() : above.y();
    return {
        std::clamp(left, available.left(), std::max(available.left(), available.right() + 1 - size.width())),
        std::clamp(top, available.top(), std::max(available.top(), available.bottom() + 1 - size.height()))};
}

} // namespace

MenuItem MenuItem::divider() {
    MenuItem item;
    item.isDivider = true;
    item.isEnabled = false;
    return item;
}

QWidget* showMenu(QWidget& anchor, const MenuContent& content) {
    auto* popup = new MenuPopup(anchor, content);
    popup->move(placeFor(anchor, popup->size(), content.place));
    popup->show();
    popup->takeFocus();
    return popup;
}

} // namespace brisklog
