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
    /// The caption of the red button that confirms.
    QString actionCaption = QStringLiteral("Löschen");
};

/// Asks the question; `confirmed` runs if the action was pressed, after the alert has closed. The focus
/// starts on "Abbrechen".
SheetWindow& presentAlert(QWidget& from, const AlertContent& content, std::function<void()> confirmed);

} // namespace brisklog
