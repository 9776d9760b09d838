#include "ui/look/WindowAccessible.h"

#include <QAccessibleWidget>
#include <QWidget>
#include <vector>

namespace brisklog {
namespace {

bool isPopup(const QWidget& widget) { return widget.windowType() == Qt::Popup; }

class WindowAccessible final : public QAccessibleWidget {
public:
    using QAccessibleWidget::QAccessibleWidget;

    [[nodiscard]] int childCount() const override {
        return QAccessibleWidget::childCount() + static_cast<int>(popups().size());
    }

    [[nodiscard]] QAccessibleInterface* child(int index) const override {
        const int before = QAccessibleWidget::childCount();
        const auto open = popups();
        if (index < before || index >= before + static_cast<int>(open.size()))
            return QAccessibleWidget::child(index);
        return QAccessible::queryAccessibleInterface(open[static_cast<std::size_t>(index - before)]);
    }

    [[nodiscard]] int indexOfChild(const QAccessibleInterface* child) const override {
        const auto open = popups();
        for (std::size_t i = 0; i < open.size(); ++i)
            if (child->object() == open[i])
                return QAccessibleWidget::childCount() + static_cast<int>(i);
        return QAccessibleWidget::indexOfChild(child);
    }

private:
    [[nodiscard]] std::vector<QWidget*> popups() const {
        std::vector<QWidget*> open;
        for (QWidget* each : widget()->findChildren<QWidget*>())
            if (each->isVisible() && isPopup(*each))
                open.push_back(each);
        return open;
    }
};

} // namespace

QAccessibleInterface* windowAccessible(const QString& className, QObject* object) {
    if (className != QLatin1String("QWidget"))
        return nullptr;
    auto* const widget = qobject_cast<QWidget*>(object);
    const bool isOurs = widget != nullptr && widget->isWindow() && !isPopup(*widget) &&
                        qstrcmp(widget->metaObject()->className(), "QWidget") == 0;
    return isOurs ? new WindowAccessible(widget) : nullptr;
}

} // namespace brisklog
