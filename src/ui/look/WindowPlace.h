#pragma once

#include <QRect>

class QPoint;
class QScreen;
class QWidget;

namespace brisklog {

/// What panels leave free of the screen. With a fractional scale the last pixel counted may lie half outside
/// of it, so it is left out.
[[nodiscard]] QRect freeAreaOf(const QScreen& screen);

/// The size wanted for a window with the window manager's frame, or as much of it as the area has room for.
[[nodiscard]] QSize fittingInFrame(const QSize& wanted, const QRect& available);

/// Gives the window that size, or as much of it as fits (it may then be smaller than its smallest size was),
/// and centres it. The window manager's frame, whose height is not known in advance, is left out of that
/// unless it would not fit below the middle.
void placeInFrame(QWidget& window, const QSize& wanted, const QRect& available);

/// Moves a frameless window before it is shown, and again once it has appeared. Otherwise, with some window
/// managers the toolkit believes that a window that stays on top is at the screen's corner, and misplaces
/// whatever is positioned relative to it (menus, sheets).
void placeWindow(QWidget& window, const QPoint& place);

} // namespace brisklog
