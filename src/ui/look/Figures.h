#pragma once

#include "ui/look/Palette.h"
#include "ui/look/Typography.h"

#include <QLabel>

class QPainter;

namespace brisklog {

/// How wide the text is when every digit has a cell as wide as the widest digit.
[[nodiscard]] int figureWidth(const QString& text, FontRole font);

/// Paints one line with its digits in equal cells, so that columns align and running figures stand still.
void paintFigures(QPainter& painter, const QRect& area, const QString& text, FontRole font,
                  const QColor& color, Qt::Alignment alignment);

/// A duration or an amount. Its text is readable for screen readers like that of any label.
class FigureLabel final : public QLabel {
public:
    explicit FigureLabel(const QString& text = {}, FontRole font = FontRole::title17,
                         ColorRole color = &Palette::text,
                         Qt::Alignment alignment = Qt::AlignLeft | Qt::AlignVCenter,
                         QWidget* parent = nullptr);

    /// Does nothing when the text is the same.
    void setValue(const QString& text);
    void setColor(ColorRole color);

    [[nodiscard]] QSize sizeHint() const override;

    [[nodiscard]] QSize minimumSizeHint() const override { return sizeHint(); }

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    FontRole m_font;
    ColorRole m_color;
};

} // namespace brisklog
