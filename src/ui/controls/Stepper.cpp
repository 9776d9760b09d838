#include "ui/controls/Stepper.h"

#include "ui/look/Painting.h"
#include "ui/look/Symbols.h"

#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>

using namespace Qt::StringLiterals;

namespace brisklog {
namespace {

constexpr int numberWidth = 48;
constexpr int buttonWidth = 28;
constexpr int padding = 10;
constexpr int symbolSize = 15;
constexpr int numbersPerPage = 10;

} // namespace

Stepper::Stepper(int minimum, int maximum, const QString& unit, const QString& name, QWidget* parent)
    : QAbstractSlider(parent), m_unit(unit) {
    setRange(minimum, maximum);
    setSingleStep(1);
    setPageStep(numbersPerPage);
    setAccessibleName(name);
    setFocusPolicy(Qt::StrongFocus);
    setMouseTracking(true);
    setAttribute(Qt::WA_Hover);
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
    connect(this, &QAbstractSlider::valueChanged, this, [this] { update(); });
}

void Stepper::setNumber(int number) {
    m_isSettingNumber = true;
    setValue(number);
    m_isSettingNumber = false;
}

void Stepper::onStepped(std::function<void(int)> stepped) {
    connect(this, &QAbstractSlider::valueChanged, this, [this, stepped = std::move(stepped)](int number) {
        if (!m_isSettingNumber)
            stepped(number);
    });
}

QRect Stepper::partRect(Part part) const {
    const int left = part == Part::minus ? numberWidth : numberWidth + buttonWidth;
    return part == Part::none ? QRect(0, 0, numberWidth, height()) : QRect(left, 0, buttonWidth, height());
}

Stepper::Part Stepper::partAt(const QPoint& position) const {
    for (const Part part : {Part::minus, Part::plus})
        if (partRect(part).contains(position))
            return part;
    return Part::none;
}

bool Stepper::canStep(Part part) const {
    return isEnabled() && (part == Part::minus ? value() > minimum() : value() < maximum());
}

void Stepper::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    const Palette& palette = Palette::current();
    paintField(painter, rect(),
               {.isHovered = underMouse(), .isFocused = hasFocus(), .isEnabled = isEnabled()}, palette);
    paintText(painter, partRect(Part::none).adjusted(padding, 0, 0, 0), QString::number(value()) + m_unit,
              FontRole::body13, isEnabled() ? palette.text : palette.disabled());
    paintPart(painter, Part::minus);
    paintPart(painter, Part::plus);
}

void Stepper::paintPart(QPainter& painter, Part part) const {
    const Palette& palette = Palette::current();
    const QRect area = partRect(part);
    const bool isActive = canStep(part) && (part == m_hovered || part == m_pressed);
    // Inside the frame, so that the field's edge stays visible.
    if (isActive)
        fillRounded(painter, area.adjusted(2, 2, -2, -2), 4,
                    withOpacity(palette.control, part == m_pressed ? 0.9 : 0.7));
    const int inset = hasFocus() ? 2 : 1;
    painter.fillRect(QRect(area.x(), inset, 1, height() - 2 * inset), withOpacity(palette.secondary, 0.2));
    paintSymbol(painter, area, part == Part::minus ? u"minus"_s : u"plus"_s, symbolSize,
                canStep(part) ? palette.text : palette.disabled());
}

void Stepper::mousePressEvent(QMouseEvent* event) {
    const Part part = event->button() == Qt::LeftButton ? partAt(event->position().toPoint()) : Part::none;
    m_pressed = part;
    if (part != Part::none) {
        const auto action = part == Part::minus ? SliderSingleStepSub : SliderSingleStepAdd;
        triggerAction(action);
        setRepeatAction(action);
    }
    update();
}

void Stepper::mouseMoveEvent(QMouseEvent* event) {
    m_hovered = partAt(event->position().toPoint());
    if (m_pressed != Part::none && m_hovered != m_pressed)
        setRepeatAction(SliderNoAction);
    update();
}

void Stepper::mouseReleaseEvent(QMouseEvent*) {
    m_pressed = Part::none;
    setRepeatAction(SliderNoAction);
    update();
}

void Stepper::wheelEvent(QWheelEvent* event) { event->ignore(); }

void Stepper::leaveEvent(QEvent* event) {
    m_hovered = Part::none;
    update();
    QAbstractSlider::leaveEvent(event);
}

} // namespace brisklog
