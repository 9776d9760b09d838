#pragma once

#include <QString>
#include <functional>

class QWidget;

namespace brisklog {

class SheetWindow;

/// A question that must be answered.
struct AlertContent {
    QString title;
    QString message;
    /// Of the red button that goes on.
    QString actionCaption = QStringLiteral("Löschen");
};

/// Asks; `confirmed` runs when the action was pressed, after the alert has closed. The focus is on
/// "Abbrechen".
SheetWindow& presentAlert(QWidget& from, const AlertContent& content, std::function<void()> confirmed);

} // namespace brisklog
