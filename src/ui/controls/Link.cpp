#include "ui/controls/Link.h"

#include "ui/look/Painting.h"

#include <QPainter>

namespace brisklog {
namespace {

constexpr int radius = 4;
constexpr int linkHeight = 28;
constexpr int padding = 4;
constexpr FontRole linkFont = FontRole::caption11Medium;

} // namespace

Link::Link(const QString& caption, QWidget* parent) : Clickable(radius, parent) {
    setCaption(caption);
    setCursor(Qt::PointingHandCursor);
}

QSize Link::sizeHint() const { return {textWidth(caption(), linkFont) + 2 * padding, linkHeight}; }

void Link::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    const Palette& palette = Palette::current();
    QFont underlined = fontFor(linkFont);
    underlined.setUnderline(true);
    painter.setFont(underlined);
    painter.setPen(isHovered() ? palette.text : palette.blue);
    painter.drawText(rect(), Qt::AlignCenter | Qt::TextSingleLine, caption());
}

} // namespace brisklog
