#pragma once

#include <QString>

class QWidget;

namespace brisklog::test {

/// Everything the widget and its visible descendants paint, in both schemes, as lines of text: each widget
/// with its size and place, under it what it paints and the widgets in it. Ends in the light scheme.
[[nodiscard]] QString drawingOf(QWidget& widget);

/// Fails when the drawing of the widget is not the one accepted in tests/drawn/NAME.txt, and prints the
/// difference. With BRISKLOG_ACCEPT_DRAWINGS set, it is written there instead. Does nothing while pictures
/// are taken, which have the machine's fonts.
void expectDrawn(QWidget& widget, const QString& name);

/// The same for any other text that is accepted by eye.
void expectAcceptedText(const QString& text, const QString& name);

/// Several small drawings in one file, each under its caption.
class DrawnStates {
public:
    /// Adds what is drawn in that window, without the window itself.
    void add(const QString& caption, QWidget& window);

    /// The same as `expectDrawn`.
    void expectAccepted(const QString& name) const;

private:
    QString m_text;
};

} // namespace brisklog::test
