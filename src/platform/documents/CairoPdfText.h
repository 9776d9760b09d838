#pragma once

#include "platform/PdfDocument.h"
#include "platform/documents/CairoPdfGlyphs.h"
#include "platform/documents/CairoPdfWords.h"

#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace brisklog {

/// Typesets texts on a drawing: chooses fonts, shapes and wraps. Here `top` is measured downwards, as Cairo
/// does.
class CairoPdfText {
public:
    /// Both must outlive this.
    CairoPdfText(cairo_t* drawing, PangoFontMap* fonts);

    /// From now on everything is drawn on a new page.
    void beginPage() { m_glyphs.beginPage(); }

    /// Must be called before anything but text is drawn, because texts may be deferred until then.
    void flush() { m_glyphs.flush(); }

    void drawLine(std::string_view text, double x, double top, double width, const TextStyle& style);
    void drawNumber(std::string_view text, double x, double top, double width, const TextStyle& style);
    [[nodiscard]] double widthOfNumber(std::string_view text, const TextStyle& style);
    [[nodiscard]] std::string drawWrapped(std::string_view text, double x, double top, const PageSize& room,
                                          const TextStyle& style);
    [[nodiscard]] std::string restOfWrapped(std::string_view text, const PageSize& room,
                                            const TextStyle& style);
    [[nodiscard]] PageSize sizeOfWrapped(std::string_view text, double width, const TextStyle& style);

private:
    struct Unreference {
        void operator()(gpointer object) const { g_object_unref(object); }
    };

    struct FreeAttributes {
        void operator()(PangoAttrList* attributes) const { pango_attr_list_unref(attributes); }
    };

    struct FreeRun {
        void operator()(PangoGlyphItem* run) const { pango_glyph_item_free(run); }
    };

    using Layout = std::unique_ptr<PangoLayout, Unreference>;
    using Attributes = std::unique_ptr<PangoAttrList, FreeAttributes>;

    /// A line of text ready to be drawn.
    struct ShapedLine {
        std::string text;
        /// From left to right.
        std::vector<std::unique_ptr<PangoGlyphItem, FreeRun>> runs;
        double width = 0;
    };

    /// One line of a wrapped text; measured from the text's top.
    struct WrappedLine {
        PangoLayout* layout;
        PangoLayoutLine* line;
        double baseline;
        double bottom;
        double width;
    };

    /// What is needed to typeset text in one style.
    struct Face {
        TextStyle style;
        Attributes attributes;
        Layout layout;
        CairoPdfWords words;
        /// From the top of a line to its baseline.
        double ascent = 0;
        /// From there to its bottom.
        double descent = 0;
        /// Recently shaped lines by their text: numbers are measured before they are drawn, and many lines
        /// repeat.
        std::unordered_map<std::string, ShapedLine> recent;
        /// The lines shaped before those.
        std::unordered_map<std::string, ShapedLine> earlier;
    };

    [[nodiscard]] Face& face(const TextStyle& style);
    [[nodiscard]] Layout makeLayout(PangoAttrList* attributes) const;
    [[nodiscard]] ShapedLine shape(std::string line, Face& face) const;
    void shapeRuns(ShapedLine& shaped, const Face& face) const;
    [[nodiscard]] const ShapedLine& shaped(const std::string& line, Face& face) const;
    [[nodiscard]] PangoLayout* wrapped(const std::string& text, double width, const TextStyle& style);
    /// The iterator's current line, starting at `top`; at least as high as a line of ordinary text.
    [[nodiscard]] static WrappedLine lineAt(PangoLayoutIter* iterator, double top, const Face& face);
    [[nodiscard]] static bool endsInLineBreak(const WrappedLine& line);
    /// Passes the lines of a wrapped text to `visit` from the top until it returns false; returns the text
    /// from that line on.
    std::string visitLines(std::string_view text, double width, const TextStyle& style,
                           const std::function<bool(const WrappedLine&)>& visit);
    /// The same for the lines that fit in a room of that height, at least one.
    std::string visitFitting(std::string_view text, const PageSize& room, const TextStyle& style,
                             const std::function<void(const WrappedLine&)>& visit);
    void useInk(Ink ink);
    [[nodiscard]] PangoLayout* shortened(const std::string& line, double width, const TextStyle& style);
    void show(const ShapedLine& line, double x, double baseline);
    void show(PangoLayout* layout, PangoLayoutLine* line, double x, double baseline);

    cairo_t* m_drawing;
    std::unique_ptr<PangoContext, Unreference> m_context;
    CairoPdfGlyphs m_glyphs;
    Ink m_ink = Ink::black;
    std::vector<Face> m_faces;
};

} // namespace brisklog
