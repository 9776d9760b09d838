#include "profile/screens/CustomerDelegate.h"

#include "foundation/Text.h"
#include "profile/screens/CustomerModel.h"
#include "ui/look/FocusRing.h"
#include "ui/look/Label.h"
#include "ui/look/Painting.h"
#include "ui/look/Symbols.h"
#include "ui/look/Text.h"

#include <QPainter>
#include <vector>

namespace brisklog {
namespace {

constexpr int sideMargin = 16;
/// Looks like 8, because the bottom pixel row of a card is its shadow.
constexpr int gapBetweenCards = 7;
constexpr int marginAboveFirst = 12;
constexpr int marginBelowLast = 11;
constexpr int radius = 10;
constexpr int paddingAcross = 14;
constexpr int paddingDown = 10;
constexpr int gapBeforeDetails = 3;
constexpr int detailHeight = 16;
constexpr int symbolSize = 14;
constexpr int symbolGap = 5;

/// One line of a card.
struct Line {
    QRect area;
    QString text;
    FontRole font;
    ColorRole color;
    QString symbol;
};

QString text(const std::string& utf8) { return screenText(text::onOneLine(utf8)); }

int heightOf(const CustomerRowView& row) {
    int height = 2 * paddingDown + cardShadow;
    height += row.headline.empty() ? 0 : lineHeight(FontRole::body13Semibold);
    height += row.company.empty() ? 0 : lineHeight(FontRole::tab12);
    height += row.details.empty() ? 0 : gapBeforeDetails;
    return height + static_cast<int>(row.details.size()) * detailHeight;
}

/// The list's top margin is part of the first row, so that it scrolls with the cards.
int marginAbove(const QModelIndex& index) { return index.row() == 0 ? marginAboveFirst : 0; }

/// The list's bottom margin is part of the last row.
int marginBelow(const QModelIndex& index) {
    const bool isLast = index.row() == index.model()->rowCount() - 1;
    return isLast ? marginBelowLast : gapBetweenCards;
}

QRect cardIn(const QRect& item, const QModelIndex& index) {
    return item.adjusted(sideMargin, marginAbove(index), -sideMargin, -marginBelow(index));
}

std::vector<Line> linesOf(const CustomerRowView& row, const QRect& card) {
    std::vector<Line> lines;
    QRect area = card.adjusted(paddingAcross, paddingDown, -paddingAcross, 0);
    const auto append = [&](const std::string& content, FontRole font, ColorRole color, int height,
                            const std::string& symbol) {
        if (content.empty())
            return;
        area.setHeight(height);
        lines.push_back({area, text(content), font, color, text(symbol)});
        area.translate(0, height);
    };
    append(row.headline, FontRole::body13Semibold, &Palette::text, lineHeight(FontRole::body13Semibold), {});
    append(row.company, FontRole::tab12, &Palette::text, lineHeight(FontRole::tab12), {});
    area.translate(0, gapBeforeDetails);
    for (const CustomerRowView::Detail& detail : row.details)
        append(detail.text, FontRole::caption11, &Palette::secondary, detailHeight, detail.symbol);
    return lines;
}

QRect textArea(const Line& line) {
    return line.symbol.isEmpty() ? line.area : line.area.adjusted(symbolSize + symbolGap, 0, 0, 0);
}

void paintLine(QPainter& painter, const Line& line, const Palette& palette) {
    const QColor& color = palette.*line.color;
    if (!line.symbol.isEmpty())
        paintSymbol(painter, QRect(line.area.topLeft(), QSize(symbolSize, line.area.height())), line.symbol,
                    symbolSize, color);
    paintText(painter, textArea(line), line.text, line.font, color);
}

} // namespace

QSize CustomerDelegate::sizeOf(const QModelIndex& index) const {
    return {0, marginAbove(index) + heightOf(m_model.rowAt(index).shown) + marginBelow(index)};
}

void CustomerDelegate::paintRow(QPainter& painter, const PaintedRow& row) const {
    const Palette& palette = Palette::current();
    const QRect card = cardIn(row.area, row.index);
    if (row.isUnderPointer)
        paintHoveredCard(painter, card, palette);
    else
        paintCard(painter, card, palette);
    for (const Line& line : linesOf(m_model.rowAt(row.index).shown, card))
        paintLine(painter, line, palette);
    if (row.showsFocusRing)
        paintFocusRing(painter, card, radius, palette);
}

QString CustomerDelegate::tooltipAt(const QRect& area, const QPoint& point, const QModelIndex& index) const {
    for (const Line& line : linesOf(m_model.rowAt(index).shown, cardIn(area, index)))
        if (line.area.contains(point))
            return textIfElided(line.text, line.font, textArea(line).width());
    return {};
}

} // namespace brisklog
