#pragma once

#include "overview/ChartScale.h"
#include "ui/look/Palette.h"

#include <QWidget>
#include <vector>

namespace brisklog {

/// A bar chart with axes. Each bar has a tooltip with its exact value, which is also what a screen reader
/// says.
class BarChart final : public QWidget {
public:
    struct Look {
        ColorRole barColor;
        int height;
        int barWidth;
        /// The room for the value labels; grows where a label needs more.
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
    /// Where the bars stand: between the highest and the base line.
    [[nodiscard]] QRect plot() const;
    [[nodiscard]] QRect column(std::size_t index) const;
    void paintScale(QPainter& painter, const Palette& palette) const;
    void paintBar(QPainter& painter, const Palette& palette, std::size_t index) const;
    void paintTitles(QPainter& painter, const Palette& palette) const;

    Look m_look;
    ChartContent m_content;
    /// One over each bar's column, clear: for the tooltip and the screen reader.
    std::vector<QWidget*> m_columns;
};

} // namespace brisklog
