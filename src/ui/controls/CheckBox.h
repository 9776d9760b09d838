#pragma once

#include "ui/controls/Clickable.h"
#include "ui/look/Palette.h"

namespace brisklog {

struct CheckBoxLook {
    bool isTicked = false;
    bool isEnabled = true;
};

/// Paints the box of 16 × 16 in the middle of `area`; for delegates.
void paintCheckBox(QPainter& painter, const QRect& area, const CheckBoxLook& look, const Palette& palette);

/// A check box with its caption; a click anywhere on it toggles it.
class CheckBox final : public Clickable {
public:
    explicit CheckBox(const QString& caption, QWidget* parent = nullptr);

    /// Sets it without calling `onToggled`.
    void setTicked(bool isTicked);

    [[nodiscard]] bool isTicked() const { return isChecked(); }

    /// Runs after the user ticked or unticked it.
    void onToggled(std::function<void(bool)> toggled);

    [[nodiscard]] QSize sizeHint() const override;
    [[nodiscard]] QSize minimumSizeHint() const override;

protected:
    void paintEvent(QPaintEvent* event) override;
};

} // namespace brisklog
