#pragma once

#include "ui/controls/Popup.h"
#include "ui/look/Palette.h"

#include <QString>
#include <functional>
#include <vector>

namespace brisklog {

/// One row of a menu.
struct MenuItem {
    QString text;
    std::function<void()> chosen = {};
    bool isChecked = false;
    /// Empty: none.
    QString symbol = {};
    ColorRole symbolColor = &Palette::secondary;
    bool isDivider = false;
    bool isEnabled = true;

    [[nodiscard]] static MenuItem divider();
};

struct MenuContent {
    std::vector<MenuItem> items;
    /// 0: as wide as the anchor or the longest text up to 420, whichever is wider. Longer texts are elided.
    int width = 0;
    /// More rows than this scroll.
    int maximumVisibleRows = 14;
    /// The row that is current at first; -1: the checked row, else the first.
    int currentRow = -1;
    PopupPlace place = PopupPlace::underAnchor;
};

/// Opens the menu below or above the anchor. Arrows, Home, End and typed letters move, Return chooses, Escape
/// or a click elsewhere closes; the focus then returns to the anchor. `chosen` runs after the menu has
/// closed. The menu destroys itself; it is returned for tests and for closing it early.
QWidget* showMenu(QWidget& anchor, const MenuContent& content);

} // namespace brisklog
