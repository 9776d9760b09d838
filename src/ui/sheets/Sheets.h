#pragma once

#include "ui/sheets/SheetWindow.h"

#include <memory>

namespace brisklog {

class SheetHost;

/// The host above the widget, found over its window and that window's parents; none in tests of a single
/// part.
[[nodiscard]] SheetHost* sheetHostOf(QWidget& widget);

/// Opens the sheet centred over the window `from` is in, modal to it and inside the screen. While it is open
/// the host is held; when it closes, the focus goes back and the sheet is destroyed. The sheet is returned so
/// that its presenter can watch it (as a QPointer).
SheetWindow& presentSheet(QWidget& from, std::unique_ptr<SheetWindow> sheet);

} // namespace brisklog
