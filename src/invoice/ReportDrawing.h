#pragma once

#include "invoice/LineBlock.h"
#include "invoice/NumberedPages.h"
#include "invoice/ReportTexts.h"
#include "platform/PdfDocument.h"

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace brisklog {

/// Draws an entry report page by page, from the sender's lines down to the bank details at the foot of the
/// last page.
class ReportDrawing {
public:
    /// Both must outlive this.
    ReportDrawing(PdfDocument& page, const ReportTexts& texts);

    void draw();

private:
    struct Column {
        const char* header;
        double x;
        double width;
    };

    [[nodiscard]] static std::vector<Column> makeColumns(const ReportTexts& texts);

    [[nodiscard]] int countPages() const;
    /// Whether totals and bank lines fit under a table that ends at `y`.
    [[nodiscard]] bool hasRoomForEnding(double y) const;

    void drawLogo();
    void drawSender();
    void drawTitle();
    /// One line from the left margin, in smaller type where it is wider than `room`.
    void drawParagraph(std::string_view text, double textTop, double room, const TextStyle& style);
    /// The bar with the column titles; rows start below it.
    void drawHeaderBar(double barBottom);

    void drawRows();
    void drawRow(const ReportRow& row);
    /// In one line in the middle of the row or in two, the second of which may be shortened.
    void drawTaskName(const std::string& text);
    void drawMoment(const ReportMoment& moment, const Column& column);
    void drawCentred(std::string_view text, const Column& column);
    void drawAtRight(std::string_view text, const Column& column);
    /// Draws a number from `x` to the right, in smaller type where it is wider than `room`.
    void drawNumberFrom(double x, double textTop, std::string_view text, double room, const TextStyle& style);

    void drawTotals();
    void drawBankLines();

    PdfDocument& m_page;
    const ReportTexts& m_texts;
    NumberedPages m_pages;
    const std::vector<Column> m_columns;
    const LineBlock m_bankLines;
    /// The top of the next row.
    double m_y = 0;
    /// The table on the current page.
    std::optional<PdfPart> m_table;
};

} // namespace brisklog
