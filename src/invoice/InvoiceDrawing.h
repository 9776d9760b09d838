#pragma once

#include "invoice/InvoiceTexts.h"
#include "invoice/LineBlock.h"
#include "invoice/NumberedPages.h"
#include "platform/PdfDocument.h"

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace brisklog {

/// Draws an invoice page by page, from the letterhead down to the tax and bank details at the foot of the
/// last page.
class InvoiceDrawing {
public:
    /// Both must outlive this.
    InvoiceDrawing(PdfDocument& page, const InvoiceTexts& texts);

    void draw();

private:
    void drawLetterhead();
    void drawGreeting();
    /// Returns what finds no room in the box.
    std::string drawParagraph(std::string_view text, const PageRectangle& box, const TextStyle& style);
    void beginFurtherPage();
    void drawTableHeader();
    void drawRows();
    void drawCells(const InvoiceCells& cells, PdfRole role, double y, const TextStyle& style);
    /// A box for each cell.
    [[nodiscard]] std::vector<PageRectangle> placeCells(const InvoiceCells& cells, double y,
                                                        const TextStyle& style);

    void drawEnding();
    void drawTotal();
    /// Returns the y of the closing text's bottom.
    double drawClosing();
    void drawNotesInBlock(double closingBottom);
    void drawNotesPages();
    void drawFooterLines();

    /// Finds out what pages there will be below and after the first table's header.
    void planPages();
    void planNotesPages();

    /// The y of the closing text's bottom, and whether total, closing text and footer fit, if the table ended
    /// at `y`.
    [[nodiscard]] double closingBottom(double y) const;
    [[nodiscard]] bool hasRoomForEnding(double y) const;
    [[nodiscard]] bool closingMeetsFooterLines(double bottom) const;
    [[nodiscard]] bool notesFitBlock(double bottom) const;
    /// Where notes at full width begin under their heading.
    [[nodiscard]] double notesTop() const;
    /// How far down notes at full width may reach on the page with the footer lines.
    [[nodiscard]] double lowestBesideFooter() const;

    PdfDocument& m_page;
    const InvoiceTexts& m_texts;
    NumberedPages m_pages;
    LineBlock m_notesHeading;
    std::string m_notes;
    TextStyle m_closingStyle;
    /// The size of the closing text, at most that of its box.
    PageSize m_closingSize;
    /// The height of the notes in the left block at the foot; 0 without notes.
    double m_notesHeight = 0;
    /// How far down the notes reach on each page of their own; empty where they fit in that block.
    std::vector<double> m_notesBottoms;
    /// Everything is laid out from the top down; this is the bottom edge of what was drawn last.
    double m_y = 0;
    /// The table on the current page.
    std::optional<PdfPart> m_table;
};

} // namespace brisklog
