#pragma once

#include "platform/documents/CairoPdfPictures.h"

#include <cairo.h>
#include <memory>
#include <pango/pango.h>
#include <string>
#include <vector>

namespace brisklog {

/// Pango measures in parts of a point.
inline double toPoints(int pangoUnits) { return static_cast<double>(pangoUnits) / PANGO_SCALE; }

/// Puts shaped text on a drawing together with the characters it stands for, so that it can be copied from
/// the document. What follows each other in one font is handed over at once, because each time costs Cairo
/// more than a word.
class CairoPdfGlyphs {
public:
    /// All must outlive this; `fontFamilies` are those of ordinary text.
    CairoPdfGlyphs(cairo_t* drawing, PangoContext* context, const char* fontFamilies)
        : m_drawing(drawing), m_context(context), m_fontFamilies(fontFamilies), m_pictures(drawing) {}

    /// From now on everything stands on another page.
    void beginPage() { m_pictures.beginPage(); }

    /// Shows one run of the text from which it was shaped; returns its width in points. It may be on the
    /// drawing only after `flush()`.
    double show(const PangoGlyphItem& run, const char* text, double x, double baseline);

    /// To be called before anything else is drawn, and before the colour changes.
    void flush();

private:
    struct Unreference {
        void operator()(gpointer object) const { g_object_unref(object); }
    };

    using Font = std::unique_ptr<PangoFont, Unreference>;

    /// The font of ordinary text in the size of another one.
    [[nodiscard]] Font ordinaryFontLike(PangoFont* font) const;
    /// What is shown from now on is in that font and direction.
    void use(Font font, cairo_text_cluster_flags_t direction);
    /// Shows what is no text, and collects the glyphs that are. Those of `blanks`, if any, stand in for all
    /// others.
    void collectGlyphs(const PangoGlyphItem& run, PangoFont* blanks, double x, double baseline);
    void collectClusters(const PangoGlyphItem& run, const char* text);
    void showUnknown(double x, double baseline, double width);

    cairo_t* m_drawing;
    PangoContext* m_context;
    const char* m_fontFamilies;
    CairoPdfPictures m_pictures;

    // What is waiting to be shown.
    Font m_font;
    cairo_text_cluster_flags_t m_direction{};
    std::string m_text;
    std::vector<cairo_glyph_t> m_glyphs;
    std::vector<cairo_text_cluster_t> m_clusters;
};

} // namespace brisklog
