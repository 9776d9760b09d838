#pragma once

#include <optional>
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

/// How a text is set.
struct TextStyle {
    double pointSize = 10;
    bool bold = false;
};

/// How a text lies in its rectangle. Text always hangs from the rectangle's top.
enum class TextFlow {
    lineLeft,    ///< one line, shortened with an ellipsis where it is too wide
    numberRight, ///< one line ending at the right edge, never shortened: it may grow to the left
    wrappedLeft, ///< as many lines as it takes; the rectangle's height does not cut them
};

/// Draws one document of A4 pages into memory. Texts may be anything: bytes that are not UTF-8 and control
/// characters are replaced before they are drawn. Drawing happens on the page begun last.
class PdfDocument {
public:
    virtual ~PdfDocument() = default;

    virtual void beginPage() = 0;

    virtual void drawText(std::string_view text, const PageRectangle& box, const TextStyle& style,
                          TextFlow flow) = 0;

    /// The height in points that `wrappedLeft` needs for the text at this width.
    [[nodiscard]] virtual double heightOfText(std::string_view text, double width,
                                              const TextStyle& style) = 0;

    /// How many bytes from the start of the text fill at most `height` points at this width, ending between
    /// two lines; the rest can be drawn elsewhere. 0 when not even one line fits.
    [[nodiscard]] virtual std::size_t lengthOfTextFitting(std::string_view text, double width, double height,
                                                          const TextStyle& style) = 0;

    /// A grey horizontal line of 0.5 points.
    virtual void drawRule(double fromX, double toX, double y) = 0;

    /// Width and height in pixels of an encoded image (PNG, JPEG, …), seen upright; absent when it does not
    /// decode.
    [[nodiscard]] virtual std::optional<PageSize> imageSize(std::string_view encoded) = 0;

    /// Draws the image stretched to the rectangle; one that does not decode is skipped.
    virtual void drawImage(std::string_view encoded, const PageRectangle& box) = 0;

    /// Ends the document and gives its bytes; empty when it could not be made. Nothing can be drawn
    /// afterwards.
    [[nodiscard]] virtual std::string finish() = 0;
};

} // namespace brisklog
