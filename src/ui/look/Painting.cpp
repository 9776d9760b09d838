#include "ui/look/Painting.h"

#include <QBitmap>
#include <QFontMetricsF>
#include <QGuiApplication>
#include <QPainter>
#include <algorithm>
#include <cmath>

namespace brisklog {
namespace {

constexpr qreal cardRadius = 10;
constexpr qreal fieldRadius = 6;

/// Restores the painter's state at the end of the scope.
class Saved {
public:
    explicit Saved(QPainter& painter) : m_painter(painter) { m_painter.save(); }

    ~Saved() { m_painter.restore(); }

    Saved(const Saved&) = delete;
    Saved& operator=(const Saved&) = delete;

private:
    QPainter& m_painter;
};

void paintCardIn(const QColor& color, QPainter& painter, const QRect& area, const Palette& palette) {
    const QRectF sheet = QRectF(area).adjusted(0, 0, 0, -cardShadow);
    fillRounded(painter, sheet.translated(0, cardShadow), cardRadius, withOpacity(QColor(0, 0, 0), 0.05));
    fillRounded(painter, sheet, cardRadius, color);
    frameRounded(painter, sheet, cardRadius, palette.line);
}

} // namespace

void fillRounded(QPainter& painter, const QRectF& area, qreal radius, const QColor& color) {
    if (color.alpha() == 0)
        return;
    const Saved saved(painter);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    painter.setBrush(color);
    painter.drawRoundedRect(area, radius, radius);
}

void frameRounded(QPainter& painter, const QRectF& area, qreal radius, const QColor& color, qreal width) {
    const Saved saved(painter);
    const qreal inset = width / 2;
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(color, width));
    painter.setBrush(Qt::NoBrush);
    painter.drawRoundedRect(area.adjusted(inset, inset, -inset, -inset), radius - inset, radius - inset);
}

void paintCard(QPainter& painter, const QRect& area, const Palette& palette) {
    paintCardIn(palette.card, painter, area, palette);
}

void paintHoveredCard(QPainter& painter, const QRect& area, const Palette& palette) {
    paintCardIn(blendedOver(withOpacity(palette.control, 0.5), palette.ground), painter, area, palette);
}

void paintField(QPainter& painter, const QRect& area, const FieldLook& look, const Palette& palette) {
    if (!look.isEnabled) {
        fillRounded(painter, area, fieldRadius, withOpacity(palette.control, 0.5));
        return;
    }
    fillRounded(painter, area, fieldRadius, palette.field);
    if (look.isFocused) {
        frameRounded(painter, area, fieldRadius, palette.blue, 2);
        return;
    }
    const QRectF ledgerLine = QRectF(area).adjusted(0, area.height() - fieldRadius * 0.3, 0, 0);
    const Saved saved(painter);
    painter.setClipRect(QRectF(area).adjusted(0, 0, 0, -ledgerLine.height()), Qt::IntersectClip);
    frameRounded(painter, area, fieldRadius, withOpacity(palette.secondary, look.isHovered ? 0.3 : 0.2));
    painter.restore();
    painter.save();
    painter.setClipRect(ledgerLine, Qt::IntersectClip);
    frameRounded(painter, area, fieldRadius, palette.rule);
}

void paintTimeEdge(QPainter& painter, const QRect& area, const QColor& color) {
    fillRounded(painter, area, area.width() / 2.0, color);
}

void paintHairline(QPainter& painter, const QRect& area, const QColor& color) {
    const QTransform toScreen = painter.deviceTransform();
    const QRectF exact = toScreen.mapRect(QRectF(area));
    // A whole number that fits into what is left of one pixel wherever it begins.
    const qreal thickness = std::floor(std::min(exact.width(), exact.height()));
    QRectF snapped(std::round(exact.x()), std::round(exact.y()), exact.width(), exact.height());
    if (area.width() > area.height())
        snapped.setHeight(thickness);
    else
        snapped.setWidth(thickness);
    painter.fillRect(toScreen.inverted().mapRect(snapped), color);
}

QString onOneLine(QString text) {
    const auto breaksLine = [](QChar c) {
        return c.category() == QChar::Other_Control || c == QChar::LineSeparator ||
               c == QChar::ParagraphSeparator;
    };
    if (std::none_of(text.cbegin(), text.cend(), breaksLine))
        return text;
    text.replace(QStringLiteral("\r\n"), QStringLiteral(" "));
    std::replace_if(text.begin(), text.end(), breaksLine, u' ');
    return text;
}

bool paintText(QPainter& painter, const QRect& area, const QString& text, FontRole font, const QColor& color,
               Qt::Alignment alignment, Qt::TextElideMode mode) {
    const Saved saved(painter);
    painter.setFont(fontFor(font));
    painter.setPen(color);
    const QString line = onOneLine(text);
    const bool mayElide = mode != Qt::ElideNone && textWidth(line, font) > area.width();
    const QString shown = mayElide ? painter.fontMetrics().elidedText(line, mode, area.width()) : line;
    painter.drawText(area, static_cast<int>(alignment) | Qt::TextSingleLine | Qt::TextDontClip, shown);
    return mayElide;
}

int textWidth(const QString& text, FontRole font) {
    return static_cast<int>(std::ceil(QFontMetricsF(fontFor(font)).horizontalAdvance(onOneLine(text))));
}

bool areCornersCut() { return QGuiApplication::platformName() == QLatin1String("xcb"); }

QRegion roundedShape(const QSize& size, int radius) {
    QBitmap shape(size);
    shape.clear();
    QPainter painter(&shape);
    painter.setPen(Qt::NoPen);
    painter.setBrush(Qt::color1);
    painter.drawRoundedRect(QRect(QPoint(), size), radius, radius);
    return QRegion(shape);
}

void paintWindowFrame(QPainter& painter, const QRect& area, const Palette& palette) {
    const Saved saved(painter);
    const QTransform toScreen = painter.deviceTransform();
    const qreal thickness = std::floor(toScreen.m11());
    const qreal inset = thickness / 2;
    const QRectF onScreen(toScreen.mapRect(QRectF(area)).toRect());
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(withOpacity(palette.secondary, 0.3), thickness / toScreen.m11(), Qt::SolidLine,
                        Qt::SquareCap, Qt::MiterJoin));
    painter.setBrush(Qt::NoBrush);
    painter.drawRect(toScreen.inverted().mapRect(onScreen.adjusted(inset, inset, -inset, -inset)));
}

} // namespace brisklog
