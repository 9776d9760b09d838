#pragma once

#include <cairo.h>
#include <pango/pango.h>
#include <vector>

namespace brisklog {

/// Puts shaped text on a drawing together with the characters it stands for, so that it can be copied from
/// the document.
class CairoPdfGlyphs {
public:
    /// The drawing must outlive this.
    explicit CairoPdfGlyphs(cairo_t* drawing) : m_drawing(drawing) {}

    /// Shows one run of the text from which it was shaped; returns its width in points.
    double show(const PangoGlyphItem& run, const char* text, double x, double baseline);

private:
    void collectGlyphs(const PangoGlyphItem& run, double x, double baseline);
    void collectClusters(const PangoGlyphItem& run, const char* text);
    void showUnknown(double x, double baseline, double width);

    cairo_t* m_drawing;
    // Kept between runs so that they are not allocated anew for each.
    std::vector<cairo_glyph_t> m_glyphs;
    std::vector<cairo_text_cluster_t> m_clusters;
};

} // namespace brisklog
