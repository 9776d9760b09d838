#include "ui/look/ScreenReader.h"

#include "ui/look/Announcements.h"

#include <QAccessibleWidget>
#include <QLabel>
#include <QVariant>
#include <algorithm>
#include <vector>

namespace brisklog {
namespace {

constexpr const char* roleProperty = "accessibleRole";

bool isPopup(const QWidget& widget) { return widget.windowType() == Qt::Popup; }

/// A label or a plain widget, with the role that was set for it.
class RoleAccessible final : public QAccessibleWidget {
public:
    using QAccessibleWidget::QAccessibleWidget;

    [[nodiscard]] QAccessible::Role role() const override {
        return accessibleRoleOf(*widget(), QAccessibleWidget::role());
    }

    [[nodiscard]] QString text(QAccessible::Text kind) const override {
        const QString text = QAccessibleWidget::text(kind);
        const auto* const label = qobject_cast<QLabel*>(widget());
        if (kind == QAccessible::Name && text.isEmpty() && label != nullptr)
            return label->text();
        const bool isRepeated = kind == QAccessible::Description && text == this->text(QAccessible::Name);
        return isRepeated ? QString() : text;
    }

    [[nodiscard]] QAccessible::State state() const override {
        QAccessible::State state = QAccessibleWidget::state();
        state.readOnly = qobject_cast<QLabel*>(widget()) != nullptr;
        // Only one thing at a time: what a proxy has, the proxy says.
        state.focused = state.focused && widget()->focusProxy() == nullptr;
        return state;
    }
};

/// A window that also lists the menus and calendars open over it as children, and what is announced in it.
/// The toolkit omits popups: a screen reader could follow the focus into a menu, but not navigate it.
class WindowAccessible final : public QAccessibleWidget {
public:
    using QAccessibleWidget::QAccessibleWidget;

    [[nodiscard]] QAccessible::Role role() const override {
        const bool isDialog = widget()->windowType() == Qt::Dialog;
        return accessibleRoleOf(*widget(), isDialog ? QAccessible::Dialog : QAccessible::Window);
    }

    [[nodiscard]] QAccessible::State state() const override {
        QAccessible::State state = QAccessibleWidget::state();
        state.modal = widget()->isModal();
        return state;
    }

    [[nodiscard]] QAccessibleInterface* parent() const override {
        // A popup is found from the window it is open over.
        return isPopup(*widget()) && widget()->parentWidget() != nullptr
                   ? QAccessible::queryAccessibleInterface(widget()->parentWidget()->window())
                   : QAccessibleWidget::parent();
    }

    [[nodiscard]] int childCount() const override {
        return QAccessibleWidget::childCount() + static_cast<int>(others().size());
    }

    [[nodiscard]] QAccessibleInterface* child(int index) const override {
        const int before = QAccessibleWidget::childCount();
        const auto found = others();
        if (index < before || index >= before + static_cast<int>(found.size()))
            return QAccessibleWidget::child(index);
        return QAccessible::queryAccessibleInterface(found[static_cast<std::size_t>(index - before)]);
    }

    [[nodiscard]] int indexOfChild(const QAccessibleInterface* child) const override {
        const auto known = others();
        const auto found = std::ranges::find(known, child->object());
        return found == known.end()
                   ? QAccessibleWidget::indexOfChild(child)
                   : QAccessibleWidget::childCount() + static_cast<int>(found - known.begin());
    }

private:
    [[nodiscard]] std::vector<QObject*> others() const {
        std::vector<QObject*> found;
        if (auto* const announcements = Announcements::in(*widget()))
            found.push_back(announcements);
        for (QWidget* each : widget()->findChildren<QWidget*>())
            if (each->isVisible() && isPopup(*each) && each->parentWidget()->window() == widget())
                found.push_back(each);
        return found;
    }
};

QAccessibleInterface* accessibleOf(const QString& className, QObject* object) {
    auto* const widget = qobject_cast<QWidget*>(object);
    if (widget == nullptr)
        return nullptr;
    // A stack shows one of its parts: for screen readers that is no layer of its own.
    const bool isPlain =
        className == QLatin1String("QWidget") || className == QLatin1String("QStackedWidget");
    if (widget->isWindow() && (isPlain || className == QLatin1String("QDialog")))
        return new WindowAccessible(widget);
    const bool isOther = className == QLatin1String("QLabel") || className == QLatin1String("QScrollArea");
    const bool hasRole = widget->property(roleProperty).isValid();
    return isPlain || (isOther && hasRole) ? new RoleAccessible(widget) : nullptr;
}

} // namespace

void installScreenReaderSupport() {
    QAccessible::installFactory(accessibleOf);
    Announcements::install();
}

void setAccessibleRole(QWidget& widget, QAccessible::Role role) {
    widget.setProperty(roleProperty, static_cast<int>(role));
    // The toolkit may have made one before the role was known.
    if (QAccessibleInterface* const before = QAccessible::queryAccessibleInterface(&widget))
        QAccessible::deleteAccessibleInterface(QAccessible::uniqueId(before));
}

QAccessible::Role accessibleRoleOf(const QWidget& widget, QAccessible::Role otherwise) {
    const QVariant role = widget.property(roleProperty);
    return role.isValid() ? static_cast<QAccessible::Role>(role.toInt()) : otherwise;
}

void announce(QWidget& from, const QString& text) {
    QWidget* window = from.window();
    // In a dialog they would say its title and all its texts before each announcement.
    while (window->parentWidget() != nullptr)
        window = window->parentWidget()->window();
    if (!text.isEmpty())
        Announcements::of(*window).say(text);
}

} // namespace brisklog
