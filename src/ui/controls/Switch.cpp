#include "ui/controls/Switch.h"

#include "ui/look/Look.h"
#include "ui/look/Painting.h"

#include <QPainter>

namespace brisklog {
namespace {

constexpr int radius = 11;
constexpr qreal knob = 18;
constexpr qreal inset = 2;
constexpr int glideMilliseconds = 120;

} // namespace

Switch::Switch(const QString& name, QWidget* parent) : Clickable(radius, parent) {
    setCheckable(true);
    setAccessibleName(name);
    connect(this, &QAbstractButton::clicked, this, [this] { moveKnob(); });
}

void Switch::setOn(bool isOn) {
    if (isChecked() == isOn)
        return;
    m_knob = isOn ? 1 : 0;
    setChecked(isOn);
}

void Switch::onToggled(std::function<void(bool)> toggled) {
    connect(this, &QAbstractButton::clicked, this,
            [toggled = std::move(toggled)](bool isOn) { toggled(isOn); });
}

void Switch::moveKnob() {
    glide(*this, m_knob, isChecked() ? 1 : 0, glideMilliseconds, [this](double knob) {
        m_knob = knob;
        update();
    });
}

void Switch::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    const Palette& palette = Palette::current();
    painter.setOpacity(isEnabled() ? 1 : 0.5);
    fillRounded(painter, rect(), radius, isChecked() ? palette.blueFill : palette.rule);
    const qreal left = inset + m_knob * (width() - knob - 2 * inset);
    fillRounded(painter, QRectF(left, inset, knob, knob), knob / 2, palette.white);
}

} // namespace brisklog
