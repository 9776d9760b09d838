#pragma once

#include "ui/sheets/SheetWindow.h"

#include <QString>
#include <functional>
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

/// A question that must be answered.
struct AlertContent {
    enum class Action { destructive, primary };

    QString title;
    QString message;
    /// Of the button that goes on.
    QString actionCaption = QStringLiteral("Löschen");
    Action action = Action::destructive;
    QString cancelCaption = QStringLiteral("Abbrechen");
};

/// Asks; `confirmed` runs when the action was pressed, after the alert has closed. The focus is on the button
/// that cancels.
SheetWindow& presentAlert(QWidget& from, const AlertContent& content, std::function<void()> confirmed);

} // namespace brisklog
