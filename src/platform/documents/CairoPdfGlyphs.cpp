#include "platform/documents/CairoPdfGlyphs.h"

#include <algorithm>
#include <cmath>
#include <hb.h>
#include <pango/pangocairo.h>
#include <string_view>

namespace brisklog {
namespace {

constexpr std::string_view ellipsis = "…";
constexpr std::size_t mostGlyphsAtOnce = 1000;

bool isEllipsis(const PangoGlyphItem& run) {
    return (run.item->analysis.flags & PANGO_ANALYSIS_FLAG_IS_ELLIPSIS) != 0;
}

/// Pango takes away the glyph of a space where a line is wrapped; readers need it to tell words apart.
bool isWrappedSpace(const PangoGlyphItem& run, const char* text, int index) {
    return run.glyphs->glyphs[index].glyph == PANGO_GLYPH_EMPTY && !isEllipsis(run) &&
           text[run.item->offset + run.glyphs->log_clusters[index]] == ' ';
}

bool isShown(const PangoGlyphItem& run, const char* text, int index) {
    constexpr PangoGlyph unknownBlank = PANGO_GET_UNKNOWN_GLYPH(U' ');
    const PangoGlyph glyph = run.glyphs->glyphs[index].glyph;
    return (glyph != PANGO_GLYPH_EMPTY || isWrappedSpace(run, text, index)) && glyph != unknownBlank;
}

/// Whether no font has the character.
bool isUnknown(const PangoGlyphInfo& glyph) { return (glyph.glyph & PANGO_GLYPH_UNKNOWN_FLAG) != 0; }

unsigned long blankOf(PangoFont* font) {
    hb_codepoint_t index = 0;
    hb_font_get_nominal_glyph(pango_font_get_hb_font(font), U' ', &index);
    return index;
}

std::string_view textOf(const PangoGlyphItem& run, const char* text) {
    if (isEllipsis(run))
        return ellipsis;
    return {text + run.item->offset, static_cast<std::size_t>(run.item->length)};
}

cairo_text_cluster_flags_t directionOf(const PangoGlyphItem& run) {
    const bool isBackward = run.item->analysis.level % 2 == 1;
    return static_cast<cairo_text_cluster_flags_t>(isBackward ? CAIRO_TEXT_CLUSTER_FLAG_BACKWARD : 0);
}

int countShown(const PangoGlyphItem& run, const char* text, int begin, int end) {
    int count = 0;
    for (int i = begin; i < end; ++i)
        count += isShown(run, text, i) ? 1 : 0;
    return count;
}

/// At a whole point, Cairo considers a glyph without ink to have no extent and leaves it out.
double offWholePoint(double place) {
    constexpr double resolution = 256;
    constexpr double aside = 0.1;
    const bool isWhole = std::fmod(std::round(place * resolution), resolution) == 0;
    return isWhole ? place + aside : place;
}

} // namespace

double CairoPdfGlyphs::show(const PangoGlyphItem& run, const char* text, double x, double baseline) {
    PangoFont* const font = run.item->analysis.font;
    if (font != nullptr) {
        // Pictures cannot be copied as text, so spaces carry the text in their place.
        Font blanks = CairoPdfPictures::areGlyphsOf(font) ? ordinaryFontLike(font) : nullptr;
        PangoFont* const blanksOrNone = blanks.get();
        use(blanks ? std::move(blanks) : Font(static_cast<PangoFont*>(g_object_ref(font))), directionOf(run));
        collectGlyphs(run, text, blanksOrNone, x, baseline);
        collectClusters(run, text);
        m_text += textOf(run, text);
    }
    return toPoints(pango_glyph_string_get_width(run.glyphs));
}

void CairoPdfGlyphs::use(Font font, cairo_text_cluster_flags_t direction) {
    const bool isBackward = direction != 0;
    if (font != m_font || isBackward || direction != m_direction || m_glyphs.size() >= mostGlyphsAtOnce)
        flush();
    m_font = std::move(font);
    m_direction = direction;
}

void CairoPdfGlyphs::flush() {
    if (!m_clusters.empty()) {
        cairo_set_scaled_font(m_drawing, pango_cairo_font_get_scaled_font(PANGO_CAIRO_FONT(m_font.get())));
        cairo_show_text_glyphs(m_drawing, m_text.data(), static_cast<int>(m_text.size()), m_glyphs.data(),
                               static_cast<int>(m_glyphs.size()), m_clusters.data(),
                               static_cast<int>(m_clusters.size()), m_direction);
    }
    m_text.clear();
    m_glyphs.clear();
    m_clusters.clear();
}

CairoPdfGlyphs::Font CairoPdfGlyphs::ordinaryFontLike(PangoFont* font) const {
    PangoFontDescription* const description = pango_font_describe(font);
    pango_font_description_set_family(description, m_fontFamilies);
    Font ordinary(pango_context_load_font(m_context, description));
    pango_font_description_free(description);
    return ordinary;
}

void CairoPdfGlyphs::collectGlyphs(const PangoGlyphItem& run, const char* text, PangoFont* blanks, double x,
                                   double baseline) {
    PangoFont* const font = run.item->analysis.font;
    const unsigned long blank = blankOf(blanks != nullptr ? blanks : font);
    for (int i = 0; i < run.glyphs->num_glyphs; ++i) {
        const PangoGlyphInfo& glyph = run.glyphs->glyphs[i];
        const double width = toPoints(glyph.geometry.width);
        if (isShown(run, text, i)) {
            const double glyphX = x + toPoints(glyph.geometry.x_offset);
            const double glyphY = baseline + toPoints(glyph.geometry.y_offset);
            const bool isSpace = isWrappedSpace(run, text, i);
            // A character that no font has would be lost as text if Pango drew it. Here it is a space in a
            // box.
            if (isUnknown(glyph))
                showUnknown(x, baseline, width);
            else if (blanks != nullptr && !isSpace)
                m_pictures.show(font, glyph.glyph, glyphX, glyphY);
            if (isUnknown(glyph) || blanks != nullptr || isSpace)
                m_glyphs.push_back({blank, offWholePoint(glyphX), offWholePoint(glyphY)});
            else
                m_glyphs.push_back({glyph.glyph, glyphX, glyphY});
        }
        x += width;
    }
}

void CairoPdfGlyphs::collectClusters(const PangoGlyphItem& run, const char* text) {
    if (isEllipsis(run)) {
        const int shown = countShown(run, text, 0, run.glyphs->num_glyphs);
        m_clusters.push_back({static_cast<int>(ellipsis.size()), shown});
        return;
    }
    auto* const item = const_cast<PangoGlyphItem*>(&run);
    PangoGlyphItemIter cluster;
    for (gboolean more = pango_glyph_item_iter_init_start(&cluster, item, text); more != FALSE;
         more = pango_glyph_item_iter_next_cluster(&cluster)) {
        const bool isForward = cluster.start_glyph < cluster.end_glyph;
        const int first = isForward ? cluster.start_glyph : cluster.end_glyph + 1;
        const int behind = isForward ? cluster.end_glyph : cluster.start_glyph + 1;
        m_clusters.push_back({cluster.end_index - cluster.start_index, countShown(run, text, first, behind)});
    }
}

void CairoPdfGlyphs::showUnknown(double x, double baseline, double width) {
    constexpr double gap = 1;
    constexpr double height = 7;
    constexpr double lineWidth = 0.5;
    cairo_set_line_width(m_drawing, lineWidth);
    cairo_rectangle(m_drawing, x + gap, baseline - height, std::max(width - 2 * gap, gap), height);
    cairo_stroke(m_drawing);
}

} // namespace brisklog
