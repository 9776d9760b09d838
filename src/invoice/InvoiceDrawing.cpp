#include "invoice/InvoiceDrawing.h"

#include "foundation/Text.h"

#include <algorithm>

namespace brisklog {
namespace {

constexpr TextStyle regular{.pointSize = 10};
constexpr TextStyle bold{.pointSize = 10, .bold = true};
constexpr TextStyle title{.pointSize = 16, .bold = true};

constexpr double pageTop = a4.height - 50;
constexpr double left = 50;
constexpr double width = a4.width - 100;
constexpr double lineHeight = 14;
/// The height leaves room for at least one row on the first page.
constexpr PageSize letterheadRoom{200, 250};
/// The sender's lines may reach this far below the recipient's before they push the title down.
constexpr double lowestSender = 36;
constexpr PageSize titleRoom{width, 20};
constexpr PageSize salutationRoom{width, 34};

constexpr double leftColumnWidth = width * 0.33;
constexpr double middleColumnX = left + leftColumnWidth;
constexpr double middleColumnWidth = width * 0.34;
constexpr double rightColumnX = left + width * 0.67;
constexpr double logoSize = 70;
constexpr PageRectangle logoBox{middleColumnX + (middleColumnWidth - logoSize) / 2, pageTop - logoSize,
                                logoSize, logoSize};

constexpr double gapOverTable = 56;
constexpr double gapOverRule = 21;
constexpr double firstRowOnLaterPages = pageTop - gapOverTable - gapOverRule - lineHeight;
/// No row starts below this.
constexpr double lowestRow = 260;
/// The rule over the rows is drawn this much higher and their text this much lower, which leaves room for
/// accents between them.
constexpr double ruleClearance = 0.9;
constexpr double closingHeight = 70;
/// From below the last row to the top of the closing text: rule, total and the gaps between them.
constexpr double tableEndToClosing = 7 + 14 + 42;

constexpr double footerTop = 218;
constexpr double footerBottom = 78;
constexpr PageSize footerRoom{200, 180};
constexpr double notesWidth = leftColumnWidth - 10;
constexpr double notesGap = 12;
constexpr PageSize notesHeadingRoom{width, 60};
constexpr double gapUnderHeading = 22;

/// Cells keep this distance from the next column's text.
constexpr double textGap = 6;
constexpr double numberGap = 4;

/// A long name is set smaller rather than cut off.
TextStyle closingStyle(PdfDocument& page, const std::string& closing) {
    constexpr double smallest = 0.5;
    TextStyle style = regular;
    const auto height = [&] { return page.sizeOfWrapped(closing, width, style).height; };
    for (double needed = height(); needed > closingHeight && style.pointSize > smallest; needed = height())
        style.pointSize *= fittingFactor(closingHeight, needed);
    return style;
}

/// White space at the end takes no room; leading white space is kept.
std::string withoutTrailingBlanks(std::string_view notes) {
    const std::string_view inner = text::trimmed(notes);
    return inner.empty() ? std::string() : std::string(notes.data(), inner.data() + inner.size());
}

} // namespace

InvoiceDrawing::InvoiceDrawing(PdfDocument& page, const InvoiceTexts& texts)
    : m_page(page), m_texts(texts), m_pages(page, texts.name),
      m_notesHeading(page, {{"Anmerkungen zur " + texts.name}}, notesHeadingRoom, title),
      m_notes(withoutTrailingBlanks(texts.notes)), m_closingStyle(closingStyle(page, texts.closing)),
      m_closingSize(page.sizeOfWrapped(texts.closing, width, m_closingStyle)) {
    m_closingSize.height = std::min(m_closingSize.height, closingHeight);
    if (!m_notes.empty())
        m_notesHeight = page.sizeOfWrapped(m_notes, notesWidth, regular).height;
}

void InvoiceDrawing::draw() {
    m_pages.begin();
    drawLetterhead();
    drawGreeting();
    drawTableHeader();
    planPages();
    drawRows();
    drawEnding();
}

void InvoiceDrawing::drawLetterhead() {
    if (m_texts.logo)
        m_page.drawImage(*m_texts.logo, logoBox);
    const LineBlock sender(m_page, {m_texts.senderLines}, letterheadRoom);
    sender.drawAs(PdfRole::paragraph, left, pageTop);
    const LineBlock recipient(m_page, {m_texts.invoiceLines, m_texts.recipientLines}, letterheadRoom);
    recipient.drawAs(PdfRole::paragraph, rightColumnX, pageTop);
    m_y = pageTop - std::max(recipient.height(), sender.height() - lowestSender);
}

void InvoiceDrawing::drawGreeting() {
    m_y -= 40 + 30;
    LineBlock(m_page, {{"Rechnung"}}, titleRoom, title)
        .drawAs(PdfRole::heading, left, m_y + titleRoom.height);
    m_y -= 50;
    LineBlock(m_page, {{m_texts.salutation}}, salutationRoom)
        .drawAs(PdfRole::paragraph, left, m_y + lineHeight);
    m_y -= 28 + 42;
    drawParagraph("vielen Dank für Ihren Auftrag und Ihr Vertrauen.\n"
                  "Für meine Arbeit stelle ich Ihnen folgende Summe in Rechnung:",
                  {left, m_y, width, 42}, regular);
}

std::string InvoiceDrawing::drawParagraph(std::string_view text, const PageRectangle& box,
                                          const TextStyle& style) {
    const PdfPart part(m_page, PdfRole::paragraph);
    return m_page.drawWrapped(text, box, style);
}

void InvoiceDrawing::drawTableHeader() {
    m_table.emplace(m_page, PdfRole::table);
    m_y -= gapOverTable;
    InvoiceCells headings;
    for (const InvoiceColumn& column : invoiceColumns())
        headings.emplace_back(column.heading);
    drawCells(headings, PdfRole::columnTitle, m_y, bold);
    m_y -= gapOverRule;
    m_page.drawRule(left, left + width, m_y + ruleClearance);
    m_y -= lineHeight;
}

void InvoiceDrawing::drawRows() {
    for (const InvoiceCells& row : m_texts.table.rows) {
        if (m_y < lowestRow) {
            beginFurtherPage();
            drawTableHeader();
        }
        drawCells(row, PdfRole::tableCell, m_y - ruleClearance, regular);
        m_y -= lineHeight;
    }
}

void InvoiceDrawing::beginFurtherPage() {
    m_table.reset();
    m_pages.begin();
    m_y = pageTop;
}

void InvoiceDrawing::drawCells(const InvoiceCells& cells, PdfRole role, double y, const TextStyle& style) {
    const PdfPart row(m_page, PdfRole::tableRow);
    const auto boxes = placeCells(cells, y, style);
    for (std::size_t i = 0; i < cells.size(); ++i) {
        const PdfPart cell(m_page, role);
        if (invoiceColumns()[i].content == InvoiceColumn::Content::text)
            m_page.drawLine(cells[i], boxes[i], style);
        else
            m_page.drawNumber(cells[i], boxes[i], style);
    }
}

std::vector<PageRectangle> InvoiceDrawing::placeCells(const InvoiceCells& cells, double y,
                                                      const TextStyle& style) {
    // From right to left, so that a number too long for its column pushes its neighbours aside instead of
    // covering them.
    std::vector<PageRectangle> boxes(cells.size());
    double room = left + width;
    for (std::size_t i = cells.size(); i-- > 0;) {
        const InvoiceColumn& column = invoiceColumns()[i];
        const double columnX = left + width * column.left;
        const double columnWidth = width * column.width;
        if (column.content == InvoiceColumn::Content::text) {
            boxes[i] = {columnX, y, std::min(columnWidth, room - columnX) - textGap, lineHeight};
            room = columnX - numberGap;
        } else {
            const double right = std::min(columnX + columnWidth, room);
            const double needed = std::min(m_page.widthOfNumber(cells[i], style), columnWidth * 2);
            boxes[i] = {right - needed, y, needed, lineHeight};
            room = right - needed - numberGap;
        }
    }
    return boxes;
}

void InvoiceDrawing::drawEnding() {
    if (!hasRoomForEnding(m_y)) {
        beginFurtherPage();
        m_table.emplace(m_page, PdfRole::table);
    }
    drawTotal();
    m_table.reset();
    const double bottom = drawClosing();
    if (m_notesBottoms.empty())
        drawNotesInBlock(bottom);
    drawFooterLines();
    drawNotesPages();
}

void InvoiceDrawing::drawTotal() {
    m_y -= 7;
    m_page.drawRule(left, left + width, m_y);
    m_y -= 14;
    InvoiceCells cells(invoiceColumns().size());
    cells.back() = m_texts.table.total;
    const PageRectangle total = placeCells(cells, m_y, bold).back();
    const PdfPart row(m_page, PdfRole::tableRow);
    for (std::size_t i = 0; i < cells.size(); ++i) {
        const PdfPart cell(m_page, PdfRole::tableCell);
        if (i == 0)
            m_page.drawLine("Gesamtbetrag:", {left, m_y, total.x - textGap - left, lineHeight}, bold);
        else if (i + 1 == cells.size())
            m_page.drawNumber(m_texts.table.total, total, bold);
    }
}

double InvoiceDrawing::drawClosing() {
    m_y -= 42 + closingHeight;
    drawParagraph(m_texts.closing, {left, m_y, width, closingHeight}, m_closingStyle);
    return m_y + closingHeight - m_closingSize.height;
}

void InvoiceDrawing::drawNotesInBlock(double closingBottom) {
    if (m_notes.empty())
        return;
    const double top = std::min(footerTop, closingBottom - notesGap);
    drawParagraph(m_notes, {left, footerBottom, notesWidth, top - footerBottom}, regular);
}

void InvoiceDrawing::drawNotesPages() {
    double top = notesTop();
    for (std::size_t page = 0; page < m_notesBottoms.size(); ++page) {
        const double bottom = m_notesBottoms[page];
        m_pages.begin();
        if (page == 0)
            m_notesHeading.drawAs(PdfRole::heading, left, pageTop);
        m_notes = drawParagraph(m_notes, {left, bottom, width, top - bottom}, regular);
        top = pageTop;
    }
    // The tax and bank details stand at the foot of the last page, whatever else is on it.
    if (!m_notesBottoms.empty())
        drawFooterLines();
}

void InvoiceDrawing::planPages() {
    int pages = 1;
    double y = m_y;
    for (std::size_t row = 0; row < m_texts.table.rows.size(); ++row) {
        if (y < lowestRow) {
            ++pages;
            y = firstRowOnLaterPages;
        }
        y -= lineHeight;
    }
    if (!hasRoomForEnding(y)) {
        ++pages;
        y = pageTop;
    }
    if (!notesFitBlock(closingBottom(y)))
        planNotesPages();
    m_pages.setCount(pages + static_cast<int>(m_notesBottoms.size()));
}

void InvoiceDrawing::planNotesPages() {
    double top = notesTop();
    std::string rest = m_notes;
    double needed = m_page.sizeOfWrapped(rest, width, regular).height;
    while (needed > top - lowestBesideFooter()) {
        // Notes that would only just fill this page leave some lines for the next one, so the footer is never
        // alone on it.
        const bool fillsThePage = needed > top - footerBottom;
        m_notesBottoms.push_back(fillsThePage ? footerBottom : lowestBesideFooter());
        rest = m_page.restOfWrapped(rest, {width, top - m_notesBottoms.back()}, regular);
        top = pageTop;
        needed = m_page.sizeOfWrapped(rest, width, regular).height;
    }
    m_notesBottoms.push_back(footerBottom);
}

void InvoiceDrawing::drawFooterLines() {
    LineBlock(m_page, {m_texts.footerLines}, footerRoom).drawAs(PdfRole::paragraph, rightColumnX, footerTop);
}

double InvoiceDrawing::closingBottom(double y) const { return y - tableEndToClosing - m_closingSize.height; }

bool InvoiceDrawing::hasRoomForEnding(double y) const {
    const double bottom = closingBottom(y);
    return bottom >= footerBottom && !closingMeetsFooterLines(bottom);
}

bool InvoiceDrawing::closingMeetsFooterLines(double bottom) const {
    const bool reachesFooter = bottom < footerTop && !m_texts.footerLines.empty();
    return reachesFooter && left + m_closingSize.width + notesGap > rightColumnX;
}

bool InvoiceDrawing::notesFitBlock(double bottom) const {
    return m_notes.empty() || std::min(footerTop, bottom - notesGap) - m_notesHeight >= footerBottom;
}

double InvoiceDrawing::notesTop() const { return pageTop - m_notesHeading.height() - gapUnderHeading; }

double InvoiceDrawing::lowestBesideFooter() const {
    return m_texts.footerLines.empty() ? footerBottom : footerTop + notesGap;
}

} // namespace brisklog
