#include "platform/documents/CairoPdfText.h"

#include "foundation/Text.h"
#include "platform/documents/CairoPdfCharacters.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <pango/pangocairo.h>
#include <utility>

namespace brisklog {
namespace {

constexpr const char* fontFamilies = "Inter, Liberation Sans, DejaVu Sans, sans-serif";
/// Digits of equal width, and no contextual alternates, which lose characters from the text that can be
/// copied.
constexpr const char* fontFeatures = "calt=0, tnum=1";
/// The same without glyph composition, which takes half of the shaping time and has no effect on plain text.
constexpr const char* plainFontFeatures = "calt=0, tnum=1, ccmp=0";

/// More bytes than fit on any line; a line is not laid out beyond this.
constexpr std::size_t longestLine = 2048;
/// Wrapped text is laid out in portions: Pango takes quadratic time for a single word that spans many lines.
constexpr std::size_t longestPortion = 2048;
constexpr std::size_t mostRecentLines = 256;

int toPango(double points) { return static_cast<int>(std::lround(points * PANGO_SCALE)); }

struct FreeIterator {
    void operator()(PangoLayoutIter* iterator) const { pango_layout_iter_free(iterator); }
};

using OwnedIterator = std::unique_ptr<PangoLayoutIter, FreeIterator>;

/// The part of the text that is laid out next; never ends within a line break.
std::string_view nextPortion(std::string_view text) {
    std::string_view portion = text::beginning(text, longestPortion);
    if (portion.size() < text.size() && portion.ends_with('\r'))
        portion.remove_suffix(1);
    return portion;
}

PangoAttrList* makeAttributes(const TextStyle& style, const char* features) {
    PangoFontDescription* const font = pango_font_description_from_string(fontFamilies);
    pango_font_description_set_size(font, toPango(style.pointSize));
    pango_font_description_set_weight(font, style.bold ? PANGO_WEIGHT_BOLD : PANGO_WEIGHT_NORMAL);
    PangoAttrList* const attributes = pango_attr_list_new();
    pango_attr_list_insert(attributes, pango_attr_font_desc_new(font));
    pango_attr_list_insert(attributes, pango_attr_font_features_new(features));
    pango_attr_list_insert(attributes, pango_attr_insert_hyphens_new(FALSE));
    pango_font_description_free(font);
    return attributes;
}

/// In steps of a tenth of a point, to limit the number of sizes.
TextStyle smaller(TextStyle style, double factor) {
    constexpr double steps = 10;
    style.pointSize = std::max(1.0, std::floor(style.pointSize * factor * steps)) / steps;
    return style;
}

/// Sizes and positions exactly as designed, not fitted to the pixels of a screen.
void setUpForPaper(PangoContext* context) {
    cairo_font_options_t* const options = cairo_font_options_create();
    cairo_font_options_set_hint_style(options, CAIRO_HINT_STYLE_NONE);
    cairo_font_options_set_hint_metrics(options, CAIRO_HINT_METRICS_OFF);
    pango_cairo_context_set_font_options(context, options);
    cairo_font_options_destroy(options);
    pango_context_set_round_glyph_positions(context, FALSE);
    pango_context_set_language(context, pango_language_from_string("de-DE"));
}

} // namespace

CairoPdfText::CairoPdfText(cairo_t* drawing, PangoFontMap* fonts)
    : m_drawing(drawing), m_context(pango_font_map_create_context(fonts)),
      m_glyphs(drawing, m_context.get(), fontFamilies) {
    setUpForPaper(m_context.get());
    pango_cairo_update_context(drawing, m_context.get());
}

CairoPdfText::Layout CairoPdfText::makeLayout(PangoAttrList* attributes) const {
    Layout layout(pango_layout_new(m_context.get()));
    pango_layout_set_attributes(layout.get(), attributes);
    pango_layout_set_wrap(layout.get(), PANGO_WRAP_WORD_CHAR);
    return layout;
}

CairoPdfText::Face& CairoPdfText::face(const TextStyle& style) {
    const auto known = std::ranges::find(m_faces, style, &Face::style);
    if (known != m_faces.end())
        return *known;
    Attributes attributes(makeAttributes(style, fontFeatures));
    const Attributes plain(makeAttributes(style, plainFontFeatures));
    Layout layout = makeLayout(attributes.get());
    pango_layout_set_text(layout.get(), "x", 1);
    const double ascent = toPoints(pango_layout_get_baseline(layout.get()));
    int height = 0;
    pango_layout_get_size(layout.get(), nullptr, &height);
    m_faces.push_back({style,
                       std::move(attributes),
                       std::move(layout),
                       CairoPdfWords(m_context.get(), plain.get()),
                       ascent,
                       toPoints(height) - ascent,
                       {},
                       {}});
    return m_faces.back();
}

CairoPdfText::ShapedLine CairoPdfText::shape(std::string line, Face& face) const {
    ShapedLine shaped{std::move(line), {}, 0};
    if (PangoGlyphItem* const plain = face.words.shape(shaped.text))
        shaped.runs.emplace_back(plain);
    else
        shapeRuns(shaped, face);
    for (const auto& run : shaped.runs)
        shaped.width += toPoints(pango_glyph_string_get_width(run->glyphs));
    return shaped;
}

void CairoPdfText::shapeRuns(ShapedLine& shaped, const Face& face) const {
    // A layout would do this too but take twice as long, because it also looks for line breaks.
    const char* const text = shaped.text.data();
    const auto length = static_cast<int>(shaped.text.size());
    GList* const logical = pango_itemize(m_context.get(), text, 0, length, face.attributes.get(), nullptr);
    GList* const visual = pango_reorder_items(logical);
    g_list_free(logical);
    for (const GList* node = visual; node != nullptr; node = node->next) {
        PangoGlyphItem* const run = g_slice_new0(PangoGlyphItem);
        shaped.runs.emplace_back(run);
        run->item = static_cast<PangoItem*>(node->data);
        run->glyphs = pango_glyph_string_new();
        pango_shape_full(text + run->item->offset, run->item->length, text, length, &run->item->analysis,
                         run->glyphs);
    }
    g_list_free(visual);
}

const CairoPdfText::ShapedLine& CairoPdfText::shaped(const std::string& line, Face& face) const {
    if (const auto known = face.recent.find(line); known != face.recent.end())
        return known->second;
    if (face.recent.size() >= mostRecentLines)
        face.earlier = std::exchange(face.recent, {});
    // Lines that are used repeatedly are thus never evicted, however many others are used once.
    if (auto known = face.earlier.extract(line))
        return face.recent.insert(std::move(known)).position->second;
    return face.recent.emplace(line, shape(line, face)).first->second;
}

void CairoPdfText::useInk(Ink ink) {
    if (std::exchange(m_ink, ink) == ink)
        return;
    m_glyphs.flush();
    const double brightness = ink == Ink::white ? 1 : 0;
    cairo_set_source_rgb(m_drawing, brightness, brightness, brightness);
}

PangoLayout* CairoPdfText::shortened(const std::string& line, double width, const TextStyle& style) {
    PangoLayout* const layout = face(style).layout.get();
    pango_layout_set_single_paragraph_mode(layout, TRUE);
    pango_layout_set_ellipsize(layout, PANGO_ELLIPSIZE_END);
    pango_layout_set_width(layout, std::max(0, toPango(width)));
    pango_layout_set_text(layout, line.data(), static_cast<int>(line.size()));
    return layout;
}

PangoLayout* CairoPdfText::wrapped(const std::string& text, double width, const TextStyle& style) {
    PangoLayout* const layout = face(style).layout.get();
    pango_layout_set_single_paragraph_mode(layout, FALSE);
    pango_layout_set_ellipsize(layout, PANGO_ELLIPSIZE_NONE);
    pango_layout_set_width(layout, toPango(width));
    pango_layout_set_text(layout, text.data(), static_cast<int>(text.size()));
    return layout;
}

void CairoPdfText::drawLine(std::string_view text, double x, double top, double width,
                            const TextStyle& style) {
    useInk(style.ink);
    const bool isCut = text.size() > longestLine;
    std::string line = printableLine(text::beginning(text, longestLine));
    if (isCut)
        line += "…";
    Face& chosen = face(style);
    // All lines of a style share one ascent, so that a character from another font does not shift its line.
    const double baseline = top + chosen.ascent;
    if (!isCut)
        if (const ShapedLine& whole = shaped(line, chosen); whole.width <= width)
            return show(whole, x, baseline);
    PangoLayout* const layout = shortened(line, width, style);
    show(layout, pango_layout_get_line_readonly(layout, 0), x, baseline);
}

double CairoPdfText::widthOfNumber(std::string_view text, const TextStyle& style) {
    return shaped(printableLine(text), face(style)).width;
}

void CairoPdfText::drawNumber(std::string_view text, double x, double top, double width,
                              const TextStyle& style) {
    useInk(style.ink);
    const std::string line = printableLine(text);
    const double baseline = top + face(style).ascent;
    const double natural = shaped(line, face(style)).width;
    const TextStyle fitting = natural <= width ? style : smaller(style, width / natural);
    const ShapedLine& number = shaped(line, face(fitting));
    show(number, x + width - number.width, baseline);
}

/// Such a line is followed by a space, so that its last word and the next line's first are not read as one.
bool CairoPdfText::endsInLineBreak(const WrappedLine& line) {
    const char* const text = pango_layout_get_text(line.layout);
    return line.line->runs != nullptr && text[line.line->start_index + line.line->length] == '\n';
}

std::string CairoPdfText::visitLines(std::string_view text, double width, const TextStyle& style,
                                     const std::function<bool(const WrappedLine&)>& visit) {
    double bottom = 0;
    std::string portion;
    for (bool isFirst = true; isFirst || !text.empty(); isFirst = false) {
        const std::string_view added = nextPortion(text);
        text.remove_prefix(added.size());
        portion += printableLines(added);
        const OwnedIterator lines(pango_layout_get_iter(wrapped(portion, width, style)));
        std::size_t unseen = 0;
        do {
            const WrappedLine line = lineAt(lines.get(), bottom, face(style));
            unseen = static_cast<std::size_t>(line.line->start_index);
            // The last line of a portion is incomplete: it continues in the next portion.
            if (unseen > 0 && !text.empty() && pango_layout_iter_at_last_line(lines.get()))
                break;
            if (!visit(line))
                return portion.substr(unseen) + std::string(text);
            unseen = portion.size();
            bottom = line.bottom;
        } while (pango_layout_iter_next_line(lines.get()));
        portion.erase(0, unseen);
    }
    return {};
}

CairoPdfText::WrappedLine CairoPdfText::lineAt(PangoLayoutIter* iterator, double top, const Face& face) {
    PangoRectangle extents;
    pango_layout_iter_get_line_extents(iterator, nullptr, &extents);
    const double ascent = toPoints(pango_layout_iter_get_baseline(iterator) - extents.y);
    const double descent = toPoints(extents.height) - ascent;
    // A line of characters that no font has would be less tall than the others and overlap its neighbours.
    const double baseline = top + std::max(ascent, face.ascent);
    return {pango_layout_iter_get_layout(iterator), pango_layout_iter_get_line_readonly(iterator), baseline,
            baseline + std::max(descent, face.descent), toPoints(extents.width)};
}

std::string CairoPdfText::visitFitting(std::string_view text, const PageSize& room, const TextStyle& style,
                                       const std::function<void(const WrappedLine&)>& visit) {
    bool isFirst = true;
    return visitLines(text, room.width, style, [&](const WrappedLine& line) {
        if (!std::exchange(isFirst, false) && line.bottom > room.height)
            return false;
        visit(line);
        return true;
    });
}

std::string CairoPdfText::drawWrapped(std::string_view text, double x, double top, const PageSize& room,
                                      const TextStyle& style) {
    useInk(style.ink);
    return visitFitting(text, room, style, [&](const WrappedLine& line) {
        show(line.layout, line.line, x, top + line.baseline);
        if (endsInLineBreak(line))
            show(shaped(" ", face(style)), x + line.width, top + line.baseline);
    });
}

std::string CairoPdfText::restOfWrapped(std::string_view text, const PageSize& room, const TextStyle& style) {
    return visitFitting(text, room, style, [](const WrappedLine&) {});
}

PageSize CairoPdfText::sizeOfWrapped(std::string_view text, double width, const TextStyle& style) {
    PageSize size;
    const std::string rest = visitLines(text, width, style, [&size](const WrappedLine& line) {
        size = {std::max(size.width, line.width), line.bottom};
        return size.height <= a4.height;
    });
    if (size.height > a4.height)
        size.height = std::numeric_limits<double>::infinity();
    return size;
}

void CairoPdfText::show(const ShapedLine& line, double x, double baseline) {
    for (const auto& run : line.runs)
        x += m_glyphs.show(*run, line.text.data(), x, baseline);
}

void CairoPdfText::show(PangoLayout* layout, PangoLayoutLine* line, double x, double baseline) {
    const char* const text = pango_layout_get_text(layout);
    for (const GSList* node = line->runs; node != nullptr; node = node->next)
        x += m_glyphs.show(*static_cast<const PangoGlyphItem*>(node->data), text, x, baseline);
}

} // namespace brisklog
