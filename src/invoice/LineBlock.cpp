#include "invoice/LineBlock.h"

#include "foundation/Text.h"

#include <algorithm>
#include <cmath>
#include <string_view>
#include <tuple>
#include <utility>

namespace brisklog {
namespace {

constexpr double lineStep = 14;
constexpr double groupGap = 5;
constexpr double gapUnderWrappedLine = 4;

/// Lines are wrapped rather than set smaller than this.
constexpr double smallestPointSize = 8;
constexpr double pointSizeStep = 0.5;
constexpr double smallestPrintable = 0.2;
/// In bytes; no name or number is that long.
constexpr std::size_t longestText = 2000;

std::string onOneLineWithinBounds(std::string_view text) {
    const std::string_view printed = text::beginning(text, longestText);
    return text::onOneLine(std::string(printed)) + (printed.size() < text.size() ? "…" : "");
}

} // namespace

double fittingFactor(double room, double needed) {
    // Half the size takes a quarter of the room.
    return std::clamp(std::sqrt(room / needed), 0.5, 0.95);
}

LineBlock::LineBlock(PdfDocument& page, const Groups& groups, const PageSize& room, const TextStyle& style)
    : m_page(page), m_width(room.width) {
    double smallest = smallestPointSize;
    layOut(groups, style, smallest);
    while (m_height > room.height && smallest > smallestPrintable) {
        smallest *= fittingFactor(room.height, m_height);
        layOut(groups, style, smallest);
    }
}

void LineBlock::layOut(const Groups& groups, const TextStyle& style, double smallest) {
    m_lines.clear();
    m_height = 0;
    for (const auto& group : groups) {
        if (&group != &groups.front())
            m_height += groupGap;
        for (const std::string& text : group) {
            Line line = fitted(onOneLineWithinBounds(text), style, smallest);
            line.offset = m_height;
            m_height += line.size.height;
            m_lines.push_back(std::move(line));
        }
    }
}

LineBlock::Line LineBlock::fitted(std::string text, TextStyle style, double smallest) const {
    double width = m_page.widthOfNumber(text, style);
    const auto set = [&](double pointSize) {
        style.pointSize = pointSize;
        width = m_page.widthOfNumber(text, style);
    };
    if (width * smallest / style.pointSize > m_width)
        set(smallest);
    while (width > m_width && style.pointSize > smallest)
        set(std::max(style.pointSize - pointSizeStep, smallest));
    if (width <= m_width)
        return {.text = std::move(text), .style = style, .size = {width, lineStep}};
    const double height = m_page.sizeOfWrapped(text, m_width, style).height + gapUnderWrappedLine;
    return {.text = std::move(text), .style = style, .size = {m_width, height}, .isWrapped = true};
}

void LineBlock::draw(double x, double top) const {
    for (const Line& line : m_lines)
        drawLine(line, x, top);
}

void LineBlock::drawAs(PdfRole role, double x, double top) const {
    for (const Line& line : m_lines) {
        const PdfPart part(m_page, role);
        drawLine(line, x, top);
    }
}

void LineBlock::drawLine(const Line& line, double x, double top) const {
    const auto& [width, height] = line.size;
    const PageRectangle box{x, top - line.offset - height, width, height};
    if (line.isWrapped)
        std::ignore = m_page.drawWrapped(line.text, box, line.style);
    else
        m_page.drawNumber(line.text, box, line.style);
}

} // namespace brisklog
