#include "ui/look/Figures.h"

#include <QFontMetricsF>
#include <QPainter>
#include <algorithm>
#include <cmath>

namespace brisklog {
namespace {

bool isDigit(QChar character) { return character >= u'0' && character <= u'9'; }

qreal widestDigit(const QFontMetricsF& metrics) {
    qreal widest = 0;
    for (char16_t digit = u'0'; digit <= u'9'; ++digit)
        widest = std::max(widest, metrics.horizontalAdvance(QChar(digit)));
    return widest;
}

/// Calls `each(text, width)` for every digit and for every run of other characters.
template <class Each>
void forEachCell(const QString& text, const QFontMetricsF& metrics, Each each) {
    const qreal cell = widestDigit(metrics);
    for (qsizetype at = 0; at < text.size();) {
        qsizetype end = at + 1;
        if (!isDigit(text[at]))
            while (end < text.size() && !isDigit(text[end]))
                ++end;
        const QString part = text.mid(at, end - at);
        each(part, isDigit(text[at]) ? cell : metrics.horizontalAdvance(part));
        at = end;
    }
}

qreal exactWidth(const QString& text, const QFontMetricsF& metrics) {
    qreal width = 0;
    forEachCell(text, metrics, [&width](const QString&, qreal cell) { width += cell; });
    return width;
}

qreal leftEdge(const QRect& area, qreal width, Qt::Alignment alignment) {
    if (alignment.testFlag(Qt::AlignRight))
        return area.x() + area.width() - width;
    return alignment.testFlag(Qt::AlignHCenter) ? area.x() + (area.width() - width) / 2 : area.x();
}

} // namespace

int figureWidth(const QString& text, FontRole font) {
    return static_cast<int>(std::ceil(exactWidth(text, QFontMetricsF(fontFor(font)))));
}

void paintFigures(QPainter& painter, const QRect& area, const QString& text, FontRole font,
                  const QColor& color, Qt::Alignment alignment) {
    const QFontMetricsF metrics(fontFor(font));
    const int flags = static_cast<int>(Qt::AlignVCenter) | Qt::TextSingleLine | Qt::TextDontClip;
    painter.save();
    painter.setFont(fontFor(font));
    painter.setPen(color);
    qreal left = leftEdge(area, exactWidth(text, metrics), alignment);
    forEachCell(text, metrics, [&](const QString& part, qreal cell) {
        const auto horizontal = isDigit(part[0]) ? Qt::AlignHCenter : Qt::AlignLeft;
        painter.drawText(QRectF(left, area.y(), cell, area.height()), flags | static_cast<int>(horizontal),
                         part);
        left += cell;
    });
    painter.restore();
}

FigureLabel::FigureLabel(const QString& text, FontRole font, ColorRole color, Qt::Alignment alignment,
                         QWidget* parent)
    : RoleLabel(text, font, color, parent) {
    setAlignment(alignment);
    setSizePolicy(QSizePolicy::Minimum, QSizePolicy::Fixed);
}

QSize FigureLabel::sizeHint() const { return {figureWidth(text(), fontRole()), lineHeight(fontRole())}; }

void FigureLabel::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    paintFigures(painter, rect(), text(), fontRole(), color(), alignment());
}

} // namespace brisklog
