#include "ui/controls/Clickable.h"

#include "ui/look/FocusRing.h"
#include "ui/look/Keys.h"
#include "ui/look/ScreenReader.h"

#include <QAccessibleWidget>

using namespace Qt::StringLiterals;

namespace brisklog {
namespace {

/// Presents it to screen readers. Their press is a click: the toolkit's "toggle" would change the look of a
/// switch without running what it is for.
class ClickableAccessible final : public QAccessibleWidget {
public:
    explicit ClickableAccessible(Clickable& clickable) : QAccessibleWidget(&clickable) {}

    [[nodiscard]] QAccessible::Role role() const override {
        return accessibleRoleOf(clickable(),
                                clickable().isCheckable() ? QAccessible::CheckBox : QAccessible::Button);
    }

    [[nodiscard]] QAccessible::State state() const override {
        QAccessible::State state = QAccessibleWidget::state();
        const std::optional<bool> isChosen = clickable().isChosen();
        state.checkable = clickable().isCheckable();
        state.checked = clickable().isChecked();
        state.pressed = clickable().isDown();
        state.selectable = isChosen.has_value();
        state.selected = isChosen.value_or(false);
        return state;
    }

    [[nodiscard]] QString text(QAccessible::Text kind) const override {
        const QString text = QAccessibleWidget::text(kind);
        if (kind == QAccessible::Name && text.isEmpty())
            return clickable().caption();
        // The tooltip of what shows only a symbol is its name already.
        const bool isRepeated = kind == QAccessible::Description && text == this->text(QAccessible::Name);
        return isRepeated ? QString() : text;
    }

    // The labels on a card that is a button repeat its name.
    [[nodiscard]] int childCount() const override { return 0; }

    [[nodiscard]] QAccessibleInterface* child(int /*index*/) const override { return nullptr; }

    [[nodiscard]] QStringList actionNames() const override {
        if (!clickable().isEnabled())
            return {};
        return QStringList{clickable().isCheckable() ? toggleAction() : pressAction()} +
               QAccessibleWidget::actionNames();
    }

    void doAction(const QString& name) override {
        if (name == pressAction() || name == toggleAction())
            clickSoon();
        else if (name == setFocusAction() && clickable().isEnabled())
            clickable().focusVisibly();
    }

private:
    [[nodiscard]] Clickable& clickable() const { return *static_cast<Clickable*>(widget()); }

    /// Once the screen reader has its answer: the click may destroy the button.
    void clickSoon() const {
        QMetaObject::invokeMethod(
            &clickable(), [clicked = &clickable()] { clicked->click(); }, Qt::QueuedConnection);
    }
};

QAccessibleInterface* clickableAccessible(const QString&, QObject* object) {
    auto* const clickable = dynamic_cast<Clickable*>(object);
    return clickable != nullptr ? new ClickableAccessible(*clickable) : nullptr;
}

} // namespace

Clickable::Clickable(int radius, QWidget* parent)
    : QAbstractButton(parent), m_focusRing(FocusRing::attach(*this, radius)) {
    // A click leaves the focus where it is, for example in the field being filled in.
    setFocusPolicy(Qt::TabFocus);
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
    // Installing it again has no effect.
    QAccessible::installFactory(clickableAccessible);
}

void Clickable::announceChoice() {
    const bool isChosen = this->isChosen().value_or(false);
    QAccessibleEvent changed(this, isChosen ? QAccessible::SelectionAdd : QAccessible::SelectionRemove);
    QAccessible::updateAccessibility(&changed);
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
