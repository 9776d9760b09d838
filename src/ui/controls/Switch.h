#pragma once

#include "ui/controls/Clickable.h"

namespace brisklog {

/// An on/off switch, 38 × 22. The knob glides where motion is allowed.
class Switch final : public Clickable {
public:
    explicit Switch(const QString& name, QWidget* parent = nullptr);

    /// Sets it without calling `onToggled` and without motion.
    void setOn(bool isOn);

    [[nodiscard]] bool isOn() const { return isChecked(); }

    /// Runs after the user switched it.
    void onToggled(std::function<void(bool)> toggled);

    [[nodiscard]] QSize sizeHint() const override { return {38, 22}; }

    [[nodiscard]] QSize minimumSizeHint() const override { return sizeHint(); }

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    void moveKnob();

    /// 0 is off, 1 is on.
    double m_knob = 0;
};

} // namespace brisklog
