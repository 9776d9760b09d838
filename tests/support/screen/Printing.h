#pragma once

#include "platform/Appearance.h"

#include <QColor>
#include <QRect>
#include <QString>
#include <ostream>

// How failing comparisons print the toolkit's values. GoogleTest finds these functions by the values'
// namespace.

inline void PrintTo(const QString& text, std::ostream* out) { *out << '"' << text.toStdString() << '"'; }

inline void PrintTo(const QColor& color, std::ostream* out) {
    *out << color.name(QColor::HexArgb).toStdString();
}

inline void PrintTo(const QSize& size, std::ostream* out) { *out << size.width() << "×" << size.height(); }

inline void PrintTo(const QPoint& point, std::ostream* out) { *out << point.x() << ',' << point.y(); }

inline void PrintTo(const QRect& area, std::ostream* out) {
    PrintTo(area.topLeft(), out);
    *out << ' ';
    PrintTo(area.size(), out);
}

namespace brisklog {

inline void PrintTo(ColorScheme scheme, std::ostream* out) {
    *out << (scheme == ColorScheme::dark ? "dark" : "light");
}

} // namespace brisklog
