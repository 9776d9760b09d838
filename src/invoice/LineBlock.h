#pragma once

#include "platform/PdfDocument.h"

#include <string>
#include <vector>

namespace brisklog {

/// By which to multiply the size of wrapped text that needs more height than there is room. To be applied
/// until the text fits.
[[nodiscard]] double fittingFactor(double room, double needed);

/// Lines that name a payer or payee or are numbers, such as an address: none is ever shortened. A line too
/// wide for the block is set smaller, down to 8 points, and then wrapped onto further lines.
class LineBlock {
public:
    /// Lines are 14 points apart, groups 5 more, even where a group is empty.
    using Groups = std::vector<std::vector<std::string>>;

    /// The page must outlive this. Lines that would not fit in the room even so are set smaller still.
    LineBlock(PdfDocument& page, const Groups& groups, const PageSize& room, const TextStyle& style = {});

    [[nodiscard]] double height() const { return m_height; }

    void draw(double x, double top) const;
    /// The same, each line a part with that role.
    void drawAs(PdfRole role, double x, double top) const;

private:
    struct Line {
        std::string text;
        TextStyle style;
        PageSize size;
        bool isWrapped = false;
        /// From the block's top to the line's.
        double offset = 0;
    };

    void layOut(const Groups& groups, const TextStyle& style, double smallest);
    [[nodiscard]] Line fitted(std::string text, TextStyle style, double smallest) const;

    void drawLine(const Line& line, double x, double top) const;

    PdfDocument& m_page;
    double m_width;
    std::vector<Line> m_lines;
    double m_height = 0;
};

} // namespace brisklog
