#pragma once

#include <QAbstractSlider>
#include <functional>

namespace brisklog {

/// A whole number with minus and plus buttons, 104 × 32. Arrow keys step; holding a button repeats.
class Stepper final : public QAbstractSlider {
public:
    /// `unit` is shown directly after the number: "2h". `name` is the accessible name.
    Stepper(int minimum, int maximum, const QString& unit, const QString& name, QWidget* parent = nullptr);

    /// Sets the number without calling `onStepped`.
    void setNumber(int number);
    /// Runs after the user changed the number.
    void onStepped(std::function<void(int)> stepped);

    [[nodiscard]] QSize sizeHint() const override { return {104, 32}; }

    [[nodiscard]] QSize minimumSizeHint() const override { return sizeHint(); }

protected:
    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;
    void leaveEvent(QEvent* event) override;

private:
    enum class Part { none, minus, plus };

    [[nodiscard]] QRect partRect(Part part) const;
    [[nodiscard]] Part partAt(const QPoint& position) const;
    [[nodiscard]] bool canStep(Part part) const;
    void paintPart(QPainter& painter, Part part) const;

    QString m_unit;
    Part m_hovered = Part::none;
    Part m_pressed = Part::none;
    bool m_isSettingNumber = false;
};

} // namespace brisklog
