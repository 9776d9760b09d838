#pragma once

#include <QSpinBox>
#include <QStyle>
#include <functional>

namespace brisklog {

/// A whole number that can be typed, with minus and plus buttons, 104 × 32. Arrow keys step; holding a button
/// repeats. What is typed counts once the field is left or Return is pressed; Escape restores the number.
class Stepper final : public QSpinBox {
public:
    /// `unit` is shown directly after the number: "2h". `name` is the accessible name.
    Stepper(int minimum, int maximum, const QString& unit, const QString& name, QWidget* parent = nullptr);

    /// Sets the number without calling `onStepped`.
    void setNumber(int number);
    /// Runs after the user changed the number. A typed number that is too large becomes the largest.
    void onStepped(std::function<void(int)> stepped);
    /// Runs after the user typed something with digits that is no whole number, such as "1:30". The number
    /// stays.
    void onTypedText(std::function<void(const QString&)> typed);

    /// Makes what is being typed count at once, for a button that leaves the focus in the field.
    void takeOver();

    void stepBy(int steps) override;

    [[nodiscard]] QSize sizeHint() const override { return {104, 32}; }

    [[nodiscard]] QSize minimumSizeHint() const override { return sizeHint(); }

protected:
    [[nodiscard]] QValidator::State validate(QString& text, int& position) const override;
    [[nodiscard]] int valueFromText(const QString& text) const override;
    void paintEvent(QPaintEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;

private:
    [[nodiscard]] QString withoutUnit(const QString& text) const;
    [[nodiscard]] bool isBeingTyped() const;
    void restoreNumber();
    void paintPart(QPainter& painter, const QStyleOptionSpinBox& option, QStyle::SubControl part) const;

    std::function<void(const QString&)> m_typedText;
    bool m_isSettingNumber = false;
};

} // namespace brisklog
