#pragma once

class QPoint;
class QWidget;

namespace brisklog {

/// Moves a window without a window manager's frame, before it is shown, and says so once more when it has
/// appeared. Without that, some window managers leave the toolkit believing that a window which stays on top
/// is at the screen's corner, and whatever is placed relative to it (menus, sheets) appears elsewhere.
void placeWindow(QWidget& window, const QPoint& place);

} // namespace brisklog
