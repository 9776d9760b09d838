#include "overview/screens/BarChart.h"

#include "ui/look/Figures.h"
#include "ui/look/Painting.h"
#include "ui/look/ScreenReader.h"
#include "ui/look/Text.h"

#include <QPainter>
#include <algorithm>
#include <cmath>

namespace brisklog {
namespace {

constexpr int topBand = 24;
constexpr int labelBand = 20;
constexpr int labelHeight = 14;
/// Between the value labels and the grid lines.
constexpr int labelGap = 8;
constexpr qreal barRadius = 4;

QRect lineThrough(int y, int left, int width) { return {left, y - labelHeight / 2, width, labelHeight}; }

} // namespace

BarChart::BarChart(const Look& look, QWidget* parent) : QWidget(parent), m_look(look) {
    setFixedHeight(look.height);
    setAccessibleRole(*this, QAccessible::Chart);
}

void BarChart::setContent(const ChartContent& content) {
    if (m_content == content)
        return;
    m_content = content;
    describeBars();
    placeBars();
    update();
}

void BarChart::describeBars() {
    while (m_columns.size() < m_content.bars.size()) {
        m_columns.push_back(new QWidget(this));
        setAccessibleRole(*m_columns.back(), QAccessible::StaticText);
        m_columns.back()->show();
    }
    for (std::size_t i = 0; i < m_content.bars.size(); ++i) {
        const auto description = screenText(m_content.bars[i].description);
        m_columns[i]->setAccessibleName(description);
        m_columns[i]->setToolTip(description);
    }
}

void BarChart::placeBars() {
    for (std::size_t i = 0; i < m_content.bars.size(); ++i)
        m_columns[i]->setGeometry(column(i).adjusted(0, 0, 0, labelBand));
}

void BarChart::resizeEvent(QResizeEvent* event) {
    QWidget::resizeEvent(event);
    placeBars();
}

int BarChart::gutter() const {
    int widest = m_look.gutter;
    for (const std::string& label : m_content.valueLabels)
        widest = std::max(widest, figureWidth(screenText(label), FontRole::caption11) + labelGap);
    return widest;
}

QRect BarChart::plot() const {
    const int left = gutter();
    return {left, topBand, width() - left, height() - topBand - labelBand};
}

QRect BarChart::column(std::size_t index) const {
    const QRect area = plot();
    const double step = area.width() / static_cast<double>(m_content.bars.size());
    const int left = area.left() + qRound(step * static_cast<double>(index));
    const int right = area.left() + qRound(step * static_cast<double>(index + 1));
    return {left, area.top(), right - left, area.height()};
}

void BarChart::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    const Palette& palette = Palette::current();
    paintScale(painter, palette);
    for (std::size_t i = 0; i < m_content.bars.size(); ++i)
        paintBar(painter, palette, i);
    // Painted after the bars, so that it lies over their bottom edges.
    paintHairline(painter, QRect(plot().left(), plot().bottom() + 1, plot().width(), 1), palette.rule);
    paintTitles(painter, palette);
}

void BarChart::paintScale(QPainter& painter, const Palette& palette) const {
    const QRect area = plot();
    const auto lines = m_content.scale.lines();
    for (std::size_t i = 0; i < m_content.valueLabels.size(); ++i) {
        const int y = area.bottom() + 1 - qRound(m_content.scale.share(lines[i]) * area.height());
        paintHairline(painter, QRect(area.left(), y, area.width(), 1), palette.line);
        paintFigures(painter, lineThrough(y, 0, area.left() - labelGap), screenText(m_content.valueLabels[i]),
                     FontRole::caption11, palette.secondary, Qt::AlignRight);
    }
}

void BarChart::paintBar(QPainter& painter, const Palette& palette, std::size_t index) const {
    const ChartBar& bar = m_content.bars[index];
    const QRect area = column(index);
    const qreal height = std::round(m_content.scale.share(bar.value) * area.height());
    const int left = area.center().x() - m_look.barWidth / 2 + 1;
    const QRectF shape(left, area.bottom() + 1 - height, m_look.barWidth, height);
    fillRounded(painter, shape, std::min(barRadius, height / 2), palette.*m_look.barColor);
    const bool isLast = index + 1 == m_content.bars.size();
    paintText(painter, QRect(area.left(), area.bottom() + 1, area.width(), labelBand), screenText(bar.label),
              isLast ? FontRole::caption11Semibold : FontRole::caption11,
              isLast ? palette.text : palette.secondary, Qt::AlignCenter, Qt::ElideNone);
}

void BarChart::paintTitles(QPainter& painter, const Palette& palette) const {
    const QRect area = plot();
    const int width = area.left() - labelGap;
    const auto end = Qt::AlignRight | Qt::AlignVCenter;
    paintText(painter, QRect(0, 0, width, labelHeight), screenText(m_content.valueTitle),
              FontRole::caption11Medium, palette.secondary, end, Qt::ElideNone);
    paintText(painter, QRect(0, area.bottom() + 1 + (labelBand - labelHeight) / 2 + 2, width, labelHeight),
              screenText(m_content.labelTitle), FontRole::caption11Medium, palette.secondary, end,
              Qt::ElideNone);
}

} // namespace brisklog
