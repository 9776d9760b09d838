#include "ui/controls/CountBadge.h"

#include "ui/look/Painting.h"

#include <QPainter>

namespace brisklog {
namespace {

constexpr int badgeHeight = 16;
constexpr int padding = 6;
constexpr FontRole badgeFont = FontRole::caption11Medium;

} // namespace

CountBadge::CountBadge(int count, QWidget* parent) : QLabel(parent) {
    setTextFormat(Qt::PlainText);
    setCount(count);
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
}

void CountBadge::setCount(int count) {
    const QString value = QString::number(count);
    if (text() != value)
        setText(value);
}

QSize CountBadge::sizeHint() const { return {textWidth(text(), badgeFont) + 2 * padding, badgeHeight}; }

void CountBadge::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    const Palette& palette = Palette::current();
    fillRounded(painter, rect(), badgeHeight / 2.0, withOpacity(palette.control, 0.8));
    paintText(painter, rect(), text(), badgeFont, palette.text, Qt::AlignCenter, Qt::ElideNone);
}

} // namespace brisklog
