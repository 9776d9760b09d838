#pragma once

#include "ui/sheets/SheetWindow.h"

#include <memory>

namespace brisklog {

class SheetHost;

/// The host among the widget's ancestors, across parent windows; null in tests of a single part.
[[nodiscard]] SheetHost* sheetHostOf(QWidget& widget);

/// Opens the sheet centred over the window that `from` is in, modal to it and inside the screen. While it is
/// open, the host is held open; when it closes, the focus returns and the sheet is destroyed. The sheet is
/// returned so that its presenter can track it (as a QPointer).
SheetWindow& presentSheet(QWidget& from, std::unique_ptr<SheetWindow> sheet);

} // namespace brisklog
