#include "ui/controls/TextArea.h"

#include "ui/lists/FloatingScrollBar.h"
#include "ui/look/Keys.h"
#include "ui/look/Painting.h"

#include <QPainter>
#include <QTextBlockFormat>
#include <QTextCursor>
#include <QTextDocument>

namespace brisklog {
namespace {

/// Asymmetric, because text in a line of fixed height sits one pixel too low.
constexpr QMargins padding(10, 7, 10, 9);

} // namespace

TextArea::TextArea(const QString& placeholder, QWidget* parent) : QTextEdit(parent) {
    setFrameStyle(QFrame::NoFrame);
    setFont(fontFor(FontRole::body13));
    setPlaceholderText(placeholder);
    setAccessibleName(placeholder);
    setAcceptRichText(false);
    setTabChangesFocus(true);
    setViewportMargins(padding);
    document()->setDocumentMargin(0);
    viewport()->setAutoFillBackground(false);
    clearGround(*this);
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
    setLineHeights();
    FloatingScrollBar::attach(*this);
}

void TextArea::onEdited(std::function<void(const QString&)> edited) {
    connect(this, &QTextEdit::textChanged, this, [this, edited = std::move(edited)] {
        // The signal is also emitted for format changes.
        if (m_isSettingValue || m_value == value())
            return;
        m_value = value();
        edited(m_value);
    });
}

QString TextArea::value() const {
    QString text = document()->toRawText();
    text.replace(QChar::ParagraphSeparator, u'\n');
    text.replace(QChar::LineSeparator, u'\n');
    return text;
}

void TextArea::setValue(const QString& text) {
    if (m_value == text)
        return;
    m_value = text;
    m_isSettingValue = true;
    setPlainText(text);
    setLineHeights();
    m_isSettingValue = false;
}

void TextArea::setLineHeights() {
    // Must not be undoable by the user.
    document()->setUndoRedoEnabled(false);
    QTextBlockFormat format;
    format.setLineHeight(lineHeight(FontRole::body13), QTextBlockFormat::FixedHeight);
    QTextCursor all(document());
    all.select(QTextCursor::Document);
    all.mergeBlockFormat(format);
    document()->setUndoRedoEnabled(true);
}

bool TextArea::event(QEvent* event) {
    switch (event->type()) {
    case QEvent::Paint:
        // The viewport is inside the padding; this widget paints the field around it.
        paintGround();
        return true;
    case QEvent::Enter:
    case QEvent::Leave:
        m_isHovered = event->type() == QEvent::Enter;
        update();
        break;
    case QEvent::FocusIn:
    case QEvent::FocusOut:
        update();
        break;
    default:
        break;
    }
    return QTextEdit::event(event);
}

void TextArea::paintGround() {
    QPainter painter(this);
    paintField(painter, rect(), {.isHovered = m_isHovered, .isFocused = hasFocus(), .isEnabled = isEnabled()},
               Palette::current());
}

void TextArea::keyPressEvent(QKeyEvent* event) {
    // Left to the sheet, for its main action.
    if (isControlReturn(*event))
        event->ignore();
    else if (isReturn(*event))
        breakLine();
    else
        QTextEdit::keyPressEvent(event);
}

void TextArea::breakLine() {
    // On an empty line the toolkit's Return would reset the line height instead of breaking the line.
    QTextCursor cursor = textCursor();
    cursor.insertBlock();
    setTextCursor(cursor);
}

} // namespace brisklog
