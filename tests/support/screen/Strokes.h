#pragma once

#include <QColor>
#include <QString>
#include <vector>

class QWidget;

namespace brisklog::test {

/// One visible thing that was painted. Places are in the widget's own coordinates.
struct Stroke {
    enum class Kind { fill, frame, line, text, symbol, picture };

    Kind kind = Kind::fill;
    /// With the painter's opacity; invalid for pictures.
    QColor color{};
    /// Where it is, with size, corner radius, pen width and, where something is cut off, the clip.
    QString place{};
    /// A text's font role and words, a symbol's name, a shape that has no name; else empty.
    QString what{};

    /// Of a text, until the parts of one line are joined.
    struct Line {
        qreal left = 0;
        qreal right = 0;
        qreal baseline = 0;
        QString font;
        QString words;
    };

    Line line{};
};

/// What the widget itself paints, without its children, in the order of painting.
[[nodiscard]] std::vector<Stroke> strokesOf(QWidget& widget);

} // namespace brisklog::test
