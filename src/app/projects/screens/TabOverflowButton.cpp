#include "app/projects/screens/TabOverflowButton.h"

#include "ui/look/Figures.h"
#include "ui/look/Painting.h"
#include "ui/look/Symbols.h"

#include <QPainter>

using namespace Qt::StringLiterals;

namespace brisklog {
namespace {

constexpr int radius = 6;
constexpr int chevronSize = 12;
constexpr int gap = 5;

} // namespace

TabOverflowButton::TabOverflowButton(QWidget* parent) : Clickable(radius, parent) {
    setToolTip(u"Alle Projekte"_s);
    setAccessibleName(u"Alle Projekte"_s);
}

void TabOverflowButton::setCount(int count) { setCaption(QString::number(count)); }

QSize TabOverflowButton::sizeHint() const { return {46, 30}; }

void TabOverflowButton::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    const Palette& palette = Palette::current();
    if (isHovered() || isDown())
        fillRounded(painter, rect(), radius, withOpacity(palette.control, isDown() ? 0.9 : 0.7));
    const int number = figureWidth(caption(), FontRole::tab12Medium);
    const int left = (width() - number - gap - chevronSize) / 2;
    paintFigures(painter, QRect(left, 0, number, height()), caption(), FontRole::tab12Medium, palette.text,
                 Qt::AlignLeft | Qt::AlignVCenter);
    paintSymbol(painter, QRect(left + number + gap, 0, chevronSize, height()), u"chevron.down"_s, chevronSize,
                palette.text);
}

} // namespace brisklog
