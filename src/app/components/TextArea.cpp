#include "app/components/TextArea.h"

#include "app/components/FloatingScrollBar.h"
#include "app/components/Painting.h"

#include <QKeyEvent>
#include <QPainter>

namespace brisklog {
namespace {

constexpr QMargins padding(10, 8, 10, 8);

} // namespace

TextArea::TextArea(const QString& placeholder, QWidget* parent) : QPlainTextEdit(parent) {
    setFrameStyle(QFrame::NoFrame);
    setFont(fontFor(FontRole::body13));
    setPlaceholderText(placeholder);
    setAccessibleName(placeholder);
    setTabChangesFocus(true);
    setViewportMargins(padding);
    document()->setDocumentMargin(0);
    viewport()->setAutoFillBackground(false);
    QPalette palette;
    palette.setColor(QPalette::Base, Qt::transparent);
    setPalette(palette);
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
    FloatingScrollBar::attach(*this);
}

void TextArea::onEdited(std::function<void(const QString&)> edited) {
    connect(this, &QPlainTextEdit::textChanged, this, [this, edited = std::move(edited)] {
        if (!m_isSettingValue)
            edited(toPlainText());
    });
}

void TextArea::setValue(const QString& text) {
    if (toPlainText() == text)
        return;
    m_isSettingValue = true;
    setPlainText(text);
    m_isSettingValue = false;
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
    return QPlainTextEdit::event(event);
}

void TextArea::paintGround() {
    QPainter painter(this);
    paintField(painter, rect(), {.isHovered = m_isHovered, .isFocused = hasFocus(), .isEnabled = isEnabled()},
               Palette::of(*this));
}

void TextArea::keyPressEvent(QKeyEvent* event) {
    const bool isReturn = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
    // Left to the sheet, whose main action it is.
    if (isReturn && event->modifiers().testFlag(Qt::ControlModifier))
        event->ignore();
    else
        QPlainTextEdit::keyPressEvent(event);
}

} // namespace brisklog
