#include "ui/controls/CheckBox.h"

#include "ui/look/Painting.h"
#include "ui/look/Symbols.h"

#include <QPainter>

using namespace Qt::StringLiterals;

namespace brisklog {
namespace {

constexpr int boxSize = 16;
constexpr int boxRadius = 4;
constexpr int checkSize = 12;
constexpr int gap = 8;
constexpr int rowHeight = 28;

} // namespace

void paintCheckBox(QPainter& painter, const QRect& area, const CheckBoxLook& look, const Palette& palette) {
    QRect box(0, 0, boxSize, boxSize);
    box.moveTopLeft({area.x() + (area.width() - boxSize) / 2, area.y() + (area.height() - boxSize) / 2});
    painter.save();
    if (!look.isEnabled)
        painter.setOpacity(painter.opacity() * 0.5);
    fillRounded(painter, box, boxRadius, look.isTicked ? palette.blueFill : palette.field);
    if (look.isTicked)
        paintSymbol(painter, box, u"checkmark"_s, checkSize, palette.white);
    else
        frameRounded(painter, box, boxRadius, palette.rule, 1.5);
    painter.restore();
}

CheckBox::CheckBox(const QString& caption, QWidget* parent) : Clickable(boxRadius, parent) {
    setCheckable(true);
    setCaption(caption);
    setSizePolicy(QSizePolicy::Minimum, QSizePolicy::Fixed);
}

void CheckBox::setTicked(bool isTicked) { setChecked(isTicked); }

void CheckBox::onToggled(std::function<void(bool)> toggled) {
    connect(this, &QAbstractButton::clicked, this,
            [toggled = std::move(toggled)](bool isTicked) { toggled(isTicked); });
}

QSize CheckBox::sizeHint() const {
    const int text = caption().isEmpty() ? 0 : gap + textWidth(caption(), FontRole::body13);
    return {boxSize + text, rowHeight};
}

QSize CheckBox::minimumSizeHint() const { return sizeHint(); }

void CheckBox::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    const Palette& palette = Palette::current();
    const QRect box(0, 0, boxSize, rect().height());
    paintCheckBox(painter, box, {.isTicked = isChecked(), .isEnabled = isEnabled()}, palette);
    paintText(painter, rect().adjusted(boxSize + gap, 0, 0, 0), caption(), FontRole::body13,
              isEnabled() ? palette.text : palette.disabled());
}

} // namespace brisklog
