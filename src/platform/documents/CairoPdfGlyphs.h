#pragma once

#include "platform/documents/CairoPdfPictures.h"

#include <cairo.h>
#include <memory>
#include <pango/pango.h>
#include <string>
#include <vector>

namespace brisklog {

/// Pango measures in fractions of a point.
inline double toPoints(int pangoUnits) { return static_cast<double>(pangoUnits) / PANGO_SCALE; }

/// Draws shaped text together with its characters, so that it can be copied from the document. Consecutive
/// text in one font is passed to Cairo in one call, because each call costs more than a word does.
class CairoPdfGlyphs {
public:
    /// All must outlive this; `fontFamilies` are those of ordinary text.
    CairoPdfGlyphs(cairo_t* drawing, PangoContext* context, const char* fontFamilies)
        : m_drawing(drawing), m_context(context), m_fontFamilies(fontFamilies), m_pictures(drawing) {}

    /// From now on everything is drawn on a new page.
    void beginPage() { m_pictures.beginPage(); }

    /// Shows one run of the text from which it was shaped; returns its width in points. Drawing may be
    /// deferred until `flush()`.
    double show(const PangoGlyphItem& run, const char* text, double x, double baseline);

    /// Must be called before anything else is drawn and before the colour changes.
    void flush();

private:
    struct Unreference {
        void operator()(gpointer object) const { g_object_unref(object); }
    };

    using Font = std::unique_ptr<PangoFont, Unreference>;

    /// The font of ordinary text in the size of another font.
    [[nodiscard]] Font ordinaryFontLike(PangoFont* font) const;
    /// Sets the font and direction of what is shown from now on.
    void use(Font font, cairo_text_cluster_flags_t direction);
    /// Draws what is not text and collects the glyphs that are; the space of the font `blanks`, if any,
    /// replaces all of them.
    void collectGlyphs(const PangoGlyphItem& run, const char* text, PangoFont* blanks, double x,
                       double baseline);
    void collectClusters(const PangoGlyphItem& run, const char* text);
    void showUnknown(double x, double baseline, double width);

    cairo_t* m_drawing;
    PangoContext* m_context;
    const char* m_fontFamilies;
    CairoPdfPictures m_pictures;

    // Buffered until the next `flush()`.
    Font m_font;
    cairo_text_cluster_flags_t m_direction{};
    std::string m_text;
    std::vector<cairo_glyph_t> m_glyphs;
    std::vector<cairo_text_cluster_t> m_clusters;
};

} // namespace brisklog
