#pragma once

#include "ui/look/Label.h"

namespace brisklog {

/// How wide the text is when every digit has a cell as wide as the widest digit.
[[nodiscard]] int figureWidth(const QString& text, FontRole font);

/// Paints one line with its digits in equal cells, so that columns align and running figures stand still.
void paintFigures(QPainter& painter, const QRect& area, const QString& text, FontRole font,
                  const QColor& color, Qt::Alignment alignment);

/// A duration or an amount. Its text is readable for screen readers like that of any label.
class FigureLabel final : public RoleLabel {
public:
    explicit FigureLabel(const QString& text = {}, FontRole font = FontRole::title17,
                         ColorRole color = &Palette::text,
                         Qt::Alignment alignment = Qt::AlignLeft | Qt::AlignVCenter,
                         QWidget* parent = nullptr);

    [[nodiscard]] QSize sizeHint() const override;

    [[nodiscard]] QSize minimumSizeHint() const override { return sizeHint(); }

protected:
    void paintEvent(QPaintEvent* event) override;
};

} // namespace brisklog
