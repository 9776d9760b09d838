#include "ui/look/Hairline.h"

#include "ui/look/Painting.h"
#include "ui/look/Palette.h"

#include <QPainter>

namespace brisklog {

Hairline::Hairline(Kind kind, Qt::Orientation orientation, QWidget* parent) : QWidget(parent), m_kind(kind) {
    if (orientation == Qt::Horizontal)
        setFixedHeight(1);
    else
        setFixedWidth(1);
}

void Hairline::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    const Palette& palette = Palette::current();
    paintHairline(painter, rect(), m_kind == Kind::card ? palette.line : withOpacity(palette.secondary, 0.2));
}

} // namespace brisklog
