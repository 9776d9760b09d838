#pragma once

#include <cairo.h>
#include <map>
#include <memory>
#include <pango/pango.h>
#include <utility>
#include <vector>

namespace brisklog {

/// Draws the glyphs of colour fonts, such as emoji. Cairo would draw them too, but lists a picture that
/// occurs twice on a page twice among the page's resources, which is an error in the document.
class CairoPdfPictures {
public:
    /// The drawing must outlive this.
    explicit CairoPdfPictures(cairo_t* drawing) : m_drawing(drawing) {}

    /// Whether the font's glyphs are pictures.
    [[nodiscard]] static bool areGlyphsOf(PangoFont* font);

    /// From now on everything is drawn on a new page.
    void beginPage();

    void show(PangoFont* font, PangoGlyph glyph, double x, double baseline);

private:
    struct DestroySurface {
        void operator()(cairo_surface_t* surface) const { cairo_surface_destroy(surface); }
    };

    struct Unreference {
        void operator()(gpointer object) const { g_object_unref(object); }
    };

    using Picture = std::unique_ptr<cairo_surface_t, DestroySurface>;

    /// One glyph; each of its copies is used at most once per page.
    struct Copies {
        /// Keeps the font alive, because its address is part of the key.
        std::unique_ptr<PangoFont, Unreference> font;
        /// From the glyph's origin to the picture's upper left corner.
        double x = 0;
        double y = 0;
        /// Null if the glyph cannot be drawn.
        std::vector<Picture> pictures;
        std::size_t usedOnPage = 0;
    };

    [[nodiscard]] Copies& copiesOf(PangoFont* font, PangoGlyph glyph);
    [[nodiscard]] static Picture makePicture(PangoFont* font, PangoGlyph glyph);

    cairo_t* m_drawing;
    std::map<std::pair<PangoFont*, PangoGlyph>, Copies> m_glyphs;
};

} // namespace brisklog
