#include "invoice/ReportDrawing.h"

#include "foundation/Text.h"

#include <algorithm>

namespace brisklog {
namespace {

constexpr TextStyle titleStyle{.pointSize = 18, .bold = true};
constexpr TextStyle subtitle{.pointSize = 12};
constexpr TextStyle barTitle{.pointSize = 12, .bold = true, .ink = Ink::white};
constexpr TextStyle cellStyle{.pointSize = 11};
constexpr TextStyle totalStyle{.pointSize = 12, .bold = true};

constexpr double top = a4.height;
constexpr double left = 50;
constexpr double width = a4.width - 100;
constexpr double lineHeight = 14;
constexpr double largeLineHeight = 18;

constexpr double logoSize = 75;
constexpr PageRectangle logoBox{(a4.width - logoSize) / 2, top - 50 - logoSize, logoSize, logoSize};

constexpr double senderX = a4.width - 200;
constexpr double senderWidth = 190;
/// Down to the bar with the column titles.
constexpr PageSize senderRoom{senderWidth, 165};

/// Ends a little before the sender's lines.
constexpr double titleWidth = 335;

constexpr double barHeight = 30;
constexpr double barBrightness = 0.2;
constexpr double barTitleInset = 5;
constexpr double barTitleHeight = 20;
constexpr double firstBarBottom = top - 245;
constexpr double laterBarBottom = top - 90;
constexpr double gapUnderBar = 10;

constexpr double rowHeight = 35;
constexpr double stripeBrightness = 0.95;
/// No row starts below this.
constexpr double lowestRow = 70;
/// From a row's top to its text, for one line and for two lines.
constexpr double oneLineInset = 11;
constexpr double twoLinesInset = 4;
constexpr double indent = 5;
/// The minimum distance of numbers from the edges of their column.
constexpr double numberInset = 2;

constexpr double gapOverTotals = 10;
constexpr double pageTop = top - 50;
constexpr double pageBottom = 50;
constexpr double bankX = 365;
constexpr double bankWidth = senderX + senderWidth - bankX;
constexpr PageSize bankRoom{bankWidth, 250};
constexpr double totalsWidth = bankX - left - 10;

} // namespace

ReportDrawing::ReportDrawing(PdfDocument& page, const ReportTexts& texts)
    : m_page(page), m_texts(texts), m_pages(page, texts.name), m_columns(makeColumns(texts)),
      m_bankLines(page, {texts.bankLines}, bankRoom) {}

std::vector<ReportDrawing::Column> ReportDrawing::makeColumns(const ReportTexts& texts) {
    const double taskWidth = width * (texts.hourlyRate ? 0.4 : 0.55);
    std::vector<Column> columns{{"Aufgabe", left, taskWidth}};
    for (const char* header : {"Startzeit", "Endzeit", "Dauer", "Verdienst"})
        columns.push_back({header, columns.back().x + columns.back().width, width * 0.15});
    if (!texts.hourlyRate)
        columns.pop_back();
    return columns;
}

void ReportDrawing::draw() {
    m_pages.setCount(countPages());
    m_pages.begin();
    drawLogo();
    drawSender();
    drawTitle();
    drawHeaderBar(firstBarBottom);
    drawRows();
    drawTotals();
    drawBankLines();
}

int ReportDrawing::countPages() const {
    int pages = 1;
    double y = firstBarBottom - gapUnderBar;
    for (std::size_t row = 0; row < m_texts.rows.size(); ++row) {
        if (y < lowestRow) {
            ++pages;
            y = laterBarBottom - gapUnderBar;
        }
        y -= rowHeight;
    }
    return hasRoomForEnding(y) ? pages : pages + 1;
}

void ReportDrawing::drawLogo() {
    if (m_texts.logo)
        m_page.drawImage(*m_texts.logo, logoBox);
}

void ReportDrawing::drawSender() {
    LineBlock(m_page, m_texts.senderGroups, senderRoom).drawAs(PdfRole::paragraph, senderX, top - 50);
}

void ReportDrawing::drawTitle() {
    {
        const PdfPart heading(m_page, PdfRole::heading);
        m_page.drawLine(m_texts.title, {left, top - 150, titleWidth, 25}, titleStyle);
    }
    drawParagraph(m_texts.creationDate, top - 175 + largeLineHeight, titleWidth, subtitle);
    if (m_texts.hourlyRate)
        drawParagraph(*m_texts.hourlyRate, top - 200 + largeLineHeight, titleWidth, subtitle);
}

void ReportDrawing::drawParagraph(std::string_view text, double textTop, double room,
                                  const TextStyle& style) {
    const PdfPart part(m_page, PdfRole::paragraph);
    drawNumberFrom(left, textTop, text, room, style);
}

void ReportDrawing::drawHeaderBar(double barBottom) {
    m_table.emplace(m_page, PdfRole::table);
    m_page.fillRectangle({left, barBottom, width, barHeight}, barBrightness);
    const PdfPart row(m_page, PdfRole::tableRow);
    for (const Column& column : m_columns) {
        const PdfPart title(m_page, PdfRole::columnTitle);
        m_page.drawLine(column.header,
                        {column.x + indent, barBottom + barTitleInset, column.width - indent, barTitleHeight},
                        barTitle);
    }
    m_y = barBottom - gapUnderBar;
}

void ReportDrawing::drawRows() {
    bool isStriped = false;
    for (const ReportRow& row : m_texts.rows) {
        if (m_y < lowestRow) {
            m_table.reset();
            m_pages.begin();
            drawHeaderBar(laterBarBottom);
        }
        if (isStriped)
            m_page.fillRectangle({left, m_y - rowHeight, width, rowHeight}, stripeBrightness);
        drawRow(row);
        m_y -= rowHeight;
        isStriped = !isStriped;
    }
    m_table.reset();
}

void ReportDrawing::drawRow(const ReportRow& row) {
    const PdfPart part(m_page, PdfRole::tableRow);
    drawTaskName(row.taskName);
    drawMoment(row.start, m_columns[1]);
    drawMoment(row.end, m_columns[2]);
    drawCentred(row.duration, m_columns[3]);
    if (row.earnings)
        drawAtRight(*row.earnings, m_columns[4]);
}

void ReportDrawing::drawTaskName(const std::string& text) {
    const PdfPart cell(m_page, PdfRole::tableCell);
    const std::string name = text::onOneLine(std::string(text::trimmed(text)));
    const Column& task = m_columns.front();
    PageRectangle line{task.x + indent, m_y - oneLineInset - lineHeight, task.width - 2 * indent, lineHeight};
    if (m_page.widthOfNumber(name, cellStyle) <= line.width)
        return m_page.drawLine(name, line, cellStyle);
    line.y = m_y - twoLinesInset - lineHeight;
    const std::string rest = m_page.drawWrapped(name, line, cellStyle);
    line.y -= lineHeight;
    m_page.drawLine(rest, line, cellStyle);
}

void ReportDrawing::drawMoment(const ReportMoment& moment, const Column& column) {
    const PdfPart cell(m_page, PdfRole::tableCell);
    const double x = column.x + indent;
    const double room = column.width - indent - numberInset;
    const double dayTop = m_y - twoLinesInset;
    // Date and time are read as one word without the space.
    drawNumberFrom(x, dayTop, moment.day.empty() ? "" : moment.day + " ", room, cellStyle);
    drawNumberFrom(x, dayTop - lineHeight, moment.time, room, cellStyle);
}

void ReportDrawing::drawCentred(std::string_view text, const Column& column) {
    const PdfPart cell(m_page, PdfRole::tableCell);
    const double room = column.width - 2 * numberInset;
    const double spare = std::max(0.0, room - m_page.widthOfNumber(text, cellStyle));
    drawNumberFrom(column.x + numberInset + spare / 2, m_y - oneLineInset, text, room, cellStyle);
}

void ReportDrawing::drawAtRight(std::string_view text, const Column& column) {
    const PdfPart cell(m_page, PdfRole::tableCell);
    const double room = column.width - indent - numberInset;
    m_page.drawNumber(text, {column.x + numberInset, m_y - oneLineInset - lineHeight, room, lineHeight},
                      cellStyle);
}

void ReportDrawing::drawNumberFrom(double x, double textTop, std::string_view text, double room,
                                   const TextStyle& style) {
    const double needed = std::min(m_page.widthOfNumber(text, style), room);
    m_page.drawNumber(text, {x, textTop - lineHeight, needed, lineHeight}, style);
}

bool ReportDrawing::hasRoomForEnding(double y) const {
    const double totals = largeLineHeight * static_cast<double>(m_texts.totals.size());
    return y - gapOverTotals - totals >= pageBottom && y >= pageBottom + m_bankLines.height();
}

void ReportDrawing::drawTotals() {
    double y = m_y - gapOverTotals;
    if (!hasRoomForEnding(m_y)) {
        m_pages.begin();
        y = pageTop;
    }
    for (const std::string& total : m_texts.totals) {
        drawParagraph(total, y, totalsWidth, totalStyle);
        y -= largeLineHeight;
    }
}

void ReportDrawing::drawBankLines() {
    m_bankLines.drawAs(PdfRole::paragraph, bankX, pageBottom + m_bankLines.height());
}

} // namespace brisklog
