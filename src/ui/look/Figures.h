#pragma once

#include "ui/look/Label.h"

namespace brisklog {

/// The width of the text when every digit takes a cell as wide as the widest digit.
[[nodiscard]] int figureWidth(const QString& text, FontRole font);

/// Paints one line with its digits in cells of equal width, so that columns align and changing numbers do not
/// jitter.
void paintFigures(QPainter& painter, const QRect& area, const QString& text, FontRole font,
                  const QColor& color, Qt::Alignment alignment);

/// A duration or an amount. Screen readers can read its text like that of any label.
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
