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

/// A frame inside the area's edge, by default of one pixel.
void frameRounded(QPainter& painter, const QRectF& area, qreal radius, const QColor& color, qreal width = 1);

/// The bottom pixel row of a card, which looks like background.
inline constexpr int cardShadow = 1;

/// Paints a card's background, border and shadow line within `area`.
void paintCard(QPainter& painter, const QRect& area, const Palette& palette);
/// The card while the pointer is over it, if it can be pressed as a whole.
void paintHoveredCard(QPainter& painter, const QRect& area, const Palette& palette);

struct FieldLook {
    bool isHovered = false;
    bool isFocused = false;
    bool isEnabled = true;
};

/// The box with the darker bottom line around every input.
void paintField(QPainter& painter, const QRect& area, const FieldLook& look, const Palette& palette);

/// The rounded bar of 3 pixels that marks running time; `area` is the bar's rectangle.
void paintTimeEdge(QPainter& painter, const QRect& area, const QColor& color);

/// A line of one pixel, `area`. With a fractional scale it is snapped to the screen's pixels, so that all
/// lines are equally thick.
void paintHairline(QPainter& painter, const QRect& area, const QColor& color);

/// The text with line breaks, tabs and other control characters replaced by spaces.
[[nodiscard]] QString onOneLine(QString text);

/// Paints one line, by default vertically centred and elided where it does not fit. Returns whether it was
/// elided.
bool paintText(QPainter& painter, const QRect& area, const QString& text, FontRole font, const QColor& color,
               Qt::Alignment alignment = Qt::AlignLeft | Qt::AlignVCenter,
               Qt::TextElideMode mode = Qt::ElideRight);

/// The width of one line, rounded up.
[[nodiscard]] int textWidth(const QString& text, FontRole font);

/// Whether small windows with rounded corners (menu, tooltip) are opaque and cut to `roundedShape`: under X,
/// where without a compositor every translucent pixel would be partly black. Elsewhere they are translucent.
[[nodiscard]] bool areCornersCut();
[[nodiscard]] QRegion roundedShape(const QSize& size, int radius);

/// A frame in the secondary colour inside the edge of a frameless window, equally thick on all sides.
void paintWindowFrame(QPainter& painter, const QRect& area, const Palette& palette);

} // namespace brisklog
