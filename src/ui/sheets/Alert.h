#pragma once

#include <QString>
#include <functional>

class QWidget;

namespace brisklog {

class SheetWindow;

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
