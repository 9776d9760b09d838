#pragma once

class QPoint;
class QScreen;
class QSize;
class QWidget;

namespace brisklog {

/// The top left corner of a window of that size centred on the screen. Ignores the window manager's frame,
/// whose height is not known in advance.
[[nodiscard]] QPoint centredOn(const QScreen& screen, const QSize& window);

/// Moves a frameless window before it is shown, and again once it has appeared. Otherwise, with some window
/// managers the toolkit believes that a window that stays on top is at the screen's corner, and misplaces
/// whatever is positioned relative to it (menus, sheets).
void placeWindow(QWidget& window, const QPoint& place);

} // namespace brisklog
