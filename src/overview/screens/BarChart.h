#pragma once

#include "overview/ChartScale.h"
#include "ui/look/Palette.h"

#include <QWidget>
#include <vector>

namespace brisklog {

/// A bar chart with axes. Each bar has a tooltip with its exact value, which screen readers announce too.
class BarChart final : public QWidget {
public:
    struct Look {
        ColorRole barColor;
        int height;
        int barWidth;
        /// The width reserved for the value labels; wider where a label needs it.
        int gutter;
    };

    explicit BarChart(const Look& look, QWidget* parent = nullptr);

    void setContent(const ChartContent& content);

protected:
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

private:
    void describeBars();
    void placeBars();
    [[nodiscard]] int gutter() const;
    /// The area of the bars, between the highest grid line and the base line.
    [[nodiscard]] QRect plot() const;
    [[nodiscard]] QRect column(std::size_t index) const;
    void paintScale(QPainter& painter, const Palette& palette) const;
    void paintBar(QPainter& painter, const Palette& palette, std::size_t index) const;
    void paintTitles(QPainter& painter, const Palette& palette) const;

    Look m_look;
    ChartContent m_content;
    /// A transparent widget over each bar's column, for the tooltip and screen readers.
    std::vector<QWidget*> m_columns;
};

} // namespace brisklog
