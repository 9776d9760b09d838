#include "ui/controls/Clickable.h"

#include "ui/look/FocusRing.h"
#include "ui/look/Keys.h"

using namespace Qt::StringLiterals;

namespace brisklog {

Clickable::Clickable(int radius, QWidget* parent)
    : QAbstractButton(parent), m_focusRing(FocusRing::attach(*this, radius)) {
    // A click leaves the focus where it is, for example in the field being filled in.
    setFocusPolicy(Qt::TabFocus);
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
}

void Clickable::onClick(std::function<void()> action) {
    connect(this, &QAbstractButton::clicked, this, [action = std::move(action)] { action(); });
}

void Clickable::setCaption(const QString& caption) {
    if (m_caption == caption)
        return;
    m_caption = caption;
    // The toolkit would turn a single `&` into a shortcut.
    setText(QString(caption).replace(u'&', u"&&"_s));
    updateGeometry();
}

void Clickable::focusVisibly() {
    m_focusRing.treatAsKeyboardFocus();
    setFocus(Qt::TabFocusReason);
}

void Clickable::enterEvent(QEnterEvent* event) {
    m_isHovered = true;
    update();
    QAbstractButton::enterEvent(event);
}

void Clickable::leaveEvent(QEvent* event) {
    m_isHovered = false;
    update();
    QAbstractButton::leaveEvent(event);
}

void Clickable::hideEvent(QHideEvent* event) {
    m_isHovered = false;
    QAbstractButton::hideEvent(event);
}

void Clickable::keyPressEvent(QKeyEvent* event) {
    if (isControlReturn(*event))
        event->ignore();
    else if (isReturn(*event))
        click();
    else
        QAbstractButton::keyPressEvent(event);
}

} // namespace brisklog
