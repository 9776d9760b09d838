#pragma once

#include "ui/look/Palette.h"
#include "ui/look/Typography.h"

#include <QRect>
#include <QRegion>
#include <QString>

class QPainter;

namespace brisklog {

/// Fills a rounded rectangle, antialiased.
void fillRounded(QPainter& painter, const QRectF& area, qreal radius, const QColor& color);

/// A frame of one pixel inside the area's edge.
void frameRounded(QPainter& painter, const QRectF& area, qreal radius, const QColor& color, qreal width = 1);

/// The lowest pixel row of a card, which the eye takes for ground.
inline constexpr int cardShadow = 1;

/// Ground, line and shadow line of a card that covers `area`, shadow included.
void paintCard(QPainter& painter, const QRect& area, const Palette& palette);
/// The card while the pointer is over it, where it can be pressed as a whole.
void paintHoveredCard(QPainter& painter, const QRect& area, const Palette& palette);

struct FieldLook {
    bool isHovered = false;
    bool isFocused = false;
    bool isEnabled = true;
};

/// The quiet box with the darker bottom line that every input stands in.
void paintField(QPainter& painter, const QRect& area, const FieldLook& look, const Palette& palette);

/// The rounded bar of 3 pixels that marks running time; `area` is its own rectangle.
void paintTimeEdge(QPainter& painter, const QRect& area, const QColor& color);

/// The text with line breaks, tabs and other control characters turned into blanks.
[[nodiscard]] QString onOneLine(QString text);

/// One line, vertically in the middle of the area, shortened where it does not fit. Returns whether it was.
bool paintText(QPainter& painter, const QRect& area, const QString& text, FontRole font, const QColor& color,
               Qt::Alignment alignment = Qt::AlignLeft | Qt::AlignVCenter,
               Qt::TextElideMode mode = Qt::ElideRight);

/// The width of one line, rounded up.
[[nodiscard]] int textWidth(const QString& text, FontRole font);

/// The shape of a small window with round corners (menu, tooltip). Where nothing composes the screen, what is
/// translucent outside it would be black.
[[nodiscard]] QRegion roundedShape(const QRect& area, int radius);

/// A frame of one pixel in secondary inside the edge of a window without a window manager's frame.
void paintWindowFrame(QPainter& painter, const QRect& area, const Palette& palette);

} // namespace brisklog
