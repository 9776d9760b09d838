#pragma once

#include "invoice/InvoiceTexts.h"
#include "platform/PdfDocument.h"

#include <string>
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
    void drawTableHeader();
    void drawRows();
    void drawCells(const InvoiceCells& cells, double y, const TextStyle& style);
    /// A box for each cell.
    [[nodiscard]] std::vector<PageRectangle> placeCells(const InvoiceCells& cells, double y,
                                                        const TextStyle& style);

    void drawEnding();
    void drawTotal();
    /// Returns the y of the closing text's bottom.
    double drawClosing();
    void drawNotes(double closingBottom);
    void drawNotesAtFullWidth(double top);
    void drawFooterLines();

    /// The y of the closing text's bottom, and whether everything after the table fits, if the table ended at
    /// `y`.
    [[nodiscard]] double closingBottom(double y) const;
    [[nodiscard]] bool hasRoomForEnding(double y) const;
    [[nodiscard]] bool closingMeetsFooterLines(double bottom) const;
    [[nodiscard]] bool notesFitBlock(double bottom) const;
    /// How far down notes at full width may reach on the page with the footer lines.
    [[nodiscard]] double lowestBesideFooter() const;

    PdfDocument& m_page;
    const InvoiceTexts& m_texts;
    std::string m_notes;
    TextStyle m_closingStyle;
    /// The size of the closing text, at most that of its box.
    PageSize m_closingSize;
    /// The height of the notes in the left block at the foot; 0 without notes.
    double m_notesHeight = 0;
    /// Everything is laid out from the top down; this is the bottom edge of what was drawn last.
    double m_y = 0;
};

} // namespace brisklog
