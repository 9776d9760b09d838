#pragma once

class QPoint;
class QScreen;
class QSize;
class QWidget;

namespace brisklog {

/// The corner of a window of that size in the middle of the screen. A window manager's frame comes on top, of
/// a height that nobody knows before.
[[nodiscard]] QPoint centredOn(const QScreen& screen, const QSize& window);

/// Moves a window without a window manager's frame, before it is shown, and says so once more when it has
/// appeared. Without that, some window managers leave the toolkit believing that a window which stays on top
/// is at the screen's corner, and whatever is placed relative to it (menus, sheets) appears elsewhere.
void placeWindow(QWidget& window, const QPoint& place);

} // namespace brisklog
