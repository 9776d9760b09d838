#pragma once

#include <QString>

class QColor;
class QPainter;
class QPixmap;
class QRect;

namespace brisklog {

/// The symbol of that name (a file in resources/symbols, without its extension) in one colour, `size` logical
/// pixels square and sharp at that pixel ratio. An unknown name gives an empty picture.
[[nodiscard]] QPixmap symbolPixmap(const QString& name, int size, const QColor& color,
                                   qreal devicePixelRatio);

/// Paints the symbol in the middle of `area`, aligned to whole pixels.
void paintSymbol(QPainter& painter, const QRect& area, const QString& name, int size, const QColor& color);

} // namespace brisklog
