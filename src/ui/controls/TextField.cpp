#include "ui/controls/TextField.h"

#include "ui/look/Keys.h"
#include "ui/look/Label.h"
#include "ui/look/Layout.h"
#include "ui/look/Painting.h"

#include <QPainter>
#include <limits>

namespace brisklog {
namespace {

constexpr int padding = 10;
/// The toolkit adds 2 pixels on both sides of the text.
constexpr int toolkitMargin = 2;

} // namespace

TextField::TextField(const QString& placeholder, Size size, QWidget* parent)
    : QLineEdit(parent), m_size(size) {
    setFrame(false);
    setMaxLength(std::numeric_limits<int>::max());
    setFont(fontFor(FontRole::body13));
    setTextMargins(padding - toolkitMargin, 0, padding - toolkitMargin, 0);
    setPlaceholderText(placeholder);
    setAccessibleName(placeholder);
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
    clearGround(*this);
    // Cleaning the text here covers the clipboard, drops and input methods.
    connect(this, &QLineEdit::textChanged, this, [this](const QString& text) { cleanUp(text); });
}

void TextField::cleanUp(const QString& text) {
    const QString clean = onOneLine(text);
    if (clean == text)
        return;
    const int cursor = cursorPosition();
    setText(clean);
    setCursorPosition(cursor);
}

void TextField::onEdited(std::function<void(const QString&)> edited) {
    // Not textEdited, which is not emitted for text from screen readers or dictation.
    connect(this, &QLineEdit::textChanged, this, [this, edited = std::move(edited)](const QString& text) {
        const bool isClean = text == onOneLine(text);
        if (!m_isSettingValue && isClean)
            edited(text);
    });
}

void TextField::onReturn(std::function<void()> returned) { m_returned = std::move(returned); }

void TextField::setValue(const QString& value) {
    const QString line = onOneLine(value);
    if (text() == line)
        return;
    m_isSettingValue = true;
    setText(line);
    m_isSettingValue = false;
}

QSize TextField::sizeHint() const { return {200, m_size == Size::tall ? 34 : 32}; }

QSize TextField::minimumSizeHint() const { return {48, sizeHint().height()}; }

void TextField::paintEvent(QPaintEvent* event) {
    QPainter painter(this);
    paintField(painter, rect(), {.isHovered = m_isHovered, .isFocused = hasFocus(), .isEnabled = isEnabled()},
               Palette::current());
    painter.end();
    QLineEdit::paintEvent(event);
}

void TextField::enterEvent(QEnterEvent* event) {
    m_isHovered = true;
    update();
    QLineEdit::enterEvent(event);
}

void TextField::leaveEvent(QEvent* event) {
    m_isHovered = false;
    update();
    QLineEdit::leaveEvent(event);
}

void TextField::keyPressEvent(QKeyEvent* event) {
    if (m_returned && isReturn(*event) && !isControlReturn(*event))
        m_returned();
    else
        QLineEdit::keyPressEvent(event);
}

QWidget* withLabelAbove(const QString& label, QWidget* field, int gap) {
    auto* caption = new Label(label, FontRole::caption11Medium, &Palette::secondary);
    field->setAccessibleName(label);
    return asWidget(Column{caption, space(gap), field});
}

} // namespace brisklog
