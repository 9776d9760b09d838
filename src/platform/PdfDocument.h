#pragma once

#include <string>
#include <string_view>

namespace brisklog {

/// A rectangle on a page in points; `y` is its bottom edge, measured from the page's bottom edge.
struct PageRectangle {
    double x = 0;
    double y = 0;
    double width = 0;
    double height = 0;
};

struct PageSize {
    double width = 0;
    double height = 0;
};

/// A4 as the documents use it, in points.
inline constexpr PageSize a4{595, 842};

enum class Ink { black, white };

/// How a text is typeset.
struct TextStyle {
    double pointSize = 10;
    bool bold = false;
    Ink ink = Ink::black;

    bool operator==(const TextStyle&) const = default;
};

/// What a part of a document is to those who have it read aloud.
enum class PdfRole { heading, paragraph, table, tableRow, columnTitle, tableCell };

/// Draws one document of A4 pages into memory. Texts may contain anything: bytes that are not UTF-8 are
/// replaced by U+FFFD, control characters by spaces. Every text is aligned to the top of its rectangle.
/// Everything is drawn on the page begun last. The language is German.
class PdfDocument {
public:
    virtual ~PdfDocument() = default;

    virtual void beginPage() = 0;

    /// What is drawn until the matching `endPart`, on the same page, has that role; parts are read in the
    /// order in which they begin. What is in no part is not read aloud.
    virtual void beginPart(PdfRole role) = 0;
    virtual void endPart(PdfRole role) = 0;

    /// One line from the rectangle's left edge, elided if it is too wide. Line breaks become spaces.
    virtual void drawLine(std::string_view text, const PageRectangle& box, const TextStyle& style) = 0;

    /// One line that ends at the rectangle's right edge. It is never elided: if it is too wide, it is set in
    /// a smaller size.
    virtual void drawNumber(std::string_view text, const PageRectangle& box, const TextStyle& style) = 0;

    /// The width in points that `drawNumber` needs to keep the style's size.
    [[nodiscard]] virtual double widthOfNumber(std::string_view text, const TextStyle& style) = 0;

    /// As many whole lines, wrapped at the rectangle's width, as its height holds, but at least one; line
    /// breaks are kept. Returns the remaining text, to be drawn elsewhere.
    [[nodiscard]] virtual std::string drawWrapped(std::string_view text, const PageRectangle& box,
                                                  const TextStyle& style) = 0;

    /// What `drawWrapped` would return, without drawing anything.
    [[nodiscard]] virtual std::string restOfWrapped(std::string_view text, const PageSize& room,
                                                    const TextStyle& style) = 0;

    /// The width and height in points that `drawWrapped` needs for the whole text at this width. Text longer
    /// than any page is not measured to its end: its height is infinite.
    [[nodiscard]] virtual PageSize sizeOfWrapped(std::string_view text, double width,
                                                 const TextStyle& style) = 0;

    /// A grey horizontal line of 0.5 points.
    virtual void drawRule(double fromX, double toX, double y) = 0;

    /// The whole rectangle in one grey, from 0 (black) to 1 (white).
    virtual void fillRectangle(const PageRectangle& box, double brightness) = 0;

    /// An encoded image (PNG, JPEG, GIF, BMP, TIFF), drawn upright, centred at the rectangle's top edge. One
    /// pixel is one point unless the image must shrink to fit; it keeps its aspect ratio and is never
    /// enlarged. An image that cannot be decoded or is absurdly large is skipped.
    virtual void drawImage(std::string_view encoded, const PageRectangle& box) = 0;

    /// Ends the document and returns its bytes; empty when it could not be created. Nothing can be drawn
    /// afterwards.
    [[nodiscard]] virtual std::string finish() = 0;
};

/// A part of a document: everything drawn while this exists.
class PdfPart {
public:
    /// The document must outlive this.
    PdfPart(PdfDocument& document, PdfRole role) : m_document(document), m_role(role) {
        m_document.beginPart(m_role);
    }

    ~PdfPart() { m_document.endPart(m_role); }

    PdfPart(const PdfPart&) = delete;
    PdfPart& operator=(const PdfPart&) = delete;

private:
    PdfDocument& m_document;
    PdfRole m_role;
};

} // namespace brisklog
