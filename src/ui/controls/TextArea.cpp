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

/// A line of fixed height hangs at its bottom, one pixel too low.
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
        // Changes of form are announced too.
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
    // Not a change that the user could take back.
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
        // The viewport lies inside the padding; the field around it is this widget's own.
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
    // Left to the sheet, whose main action it is.
    if (isControlReturn(*event))
        event->ignore();
    else if (isReturn(*event))
        breakLine();
    else
        QTextEdit::keyPressEvent(event);
}

void TextArea::breakLine() {
    // The toolkit would take the line height of an empty line away instead.
    QTextCursor cursor = textCursor();
    cursor.insertBlock();
    setTextCursor(cursor);
}

} // namespace brisklog
