#include "ui/controls/PickerAccessible.h"

#include "ui/controls/Picker.h"

#include <QAccessibleWidget>

namespace brisklog {
namespace {

class PickerAccessible final : public QAccessibleWidget {
public:
    explicit PickerAccessible(Picker& picker) : QAccessibleWidget(&picker, QAccessible::ComboBox) {}

    [[nodiscard]] QString text(QAccessible::Text kind) const override {
        return kind == QAccessible::Value ? picker().currentText() : QAccessibleWidget::text(kind);
    }

    [[nodiscard]] QStringList actionNames() const override {
        return QStringList{showMenuAction()} + QAccessibleWidget::actionNames();
    }

    void doAction(const QString& name) override {
        if (name == showMenuAction() || name == pressAction())
            picker().showPopup();
        else
            QAccessibleWidget::doAction(name);
    }

private:
    [[nodiscard]] Picker& picker() const { return *static_cast<Picker*>(widget()); }
};

} // namespace

QAccessibleInterface* pickerAccessible(const QString&, QObject* object) {
    auto* picker = dynamic_cast<Picker*>(object);
    return picker ? new PickerAccessible(*picker) : nullptr;
}

} // namespace brisklog
