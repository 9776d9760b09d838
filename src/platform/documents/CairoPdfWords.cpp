#include "platform/documents/CairoPdfWords.h"

#include <algorithm>

namespace brisklog {
namespace {

constexpr std::size_t mostWords = 4096;
constexpr std::string_view noBreakSpace = "\u00A0";

/// Characters that are laid out side by side in the order in which they are written and do not affect their
/// neighbours.
bool isPlain(gunichar c) {
    constexpr gunichar softHyphen = 0xAD;
    if (c >= 0x20 && c < 0x7F)
        return true;
    if (c >= 0xA0 && c < 0x250)
        return c != softHyphen;
    return (c >= 0x2010 && c <= 0x2027) || (c >= 0x2030 && c <= 0x205E) || (c >= 0x20A0 && c <= 0x20BF);
}

bool isPlain(std::string_view line) {
    const char* const end = line.data() + line.size();
    for (const char* at = line.data(); at < end; at = g_utf8_next_char(at))
        if (!isPlain(g_utf8_get_char(at)))
            return false;
    return true;
}

/// Up to and including the first space.
std::string_view firstWord(std::string_view text) {
    const std::size_t blank = text.find(' ');
    const std::size_t firm = text.find(noBreakSpace);
    if (firm < blank)
        return text.substr(0, firm + noBreakSpace.size());
    return text.substr(0, blank == text.npos ? blank : blank + 1);
}

bool isComplete(const PangoGlyphString& glyphs) {
    return std::none_of(glyphs.glyphs, glyphs.glyphs + glyphs.num_glyphs, [](const PangoGlyphInfo& glyph) {
        return (glyph.glyph & PANGO_GLYPH_UNKNOWN_FLAG) != 0;
    });
}

void append(PangoGlyphString* line, const PangoGlyphString& word, std::size_t offset) {
    const int first = line->num_glyphs;
    pango_glyph_string_set_size(line, first + word.num_glyphs);
    std::copy_n(word.glyphs, word.num_glyphs, line->glyphs + first);
    std::transform(word.log_clusters, word.log_clusters + word.num_glyphs, line->log_clusters + first,
                   [offset](int cluster) { return cluster + static_cast<int>(offset); });
}

} // namespace

CairoPdfWords::CairoPdfWords(PangoContext* context, PangoAttrList* attributes) {
    GList* const items = pango_itemize(context, "x", 0, 1, attributes, nullptr);
    m_model.reset(static_cast<PangoItem*>(items->data));
    g_list_free(items);
}

PangoGlyphItem* CairoPdfWords::shape(std::string_view line) {
    if (line.empty() || !isPlain(line))
        return nullptr;
    Glyphs all(pango_glyph_string_new());
    for (std::size_t at = 0; at < line.size();) {
        const std::string_view word = firstWord(line.substr(at));
        const PangoGlyphString* const glyphs = glyphsOf(word);
        if (glyphs == nullptr)
            return nullptr;
        append(all.get(), *glyphs, at);
        at += word.size();
    }
    return makeItem(line, std::move(all));
}

const PangoGlyphString* CairoPdfWords::glyphsOf(std::string_view word) {
    if (const auto known = m_words.find(word); known != m_words.end())
        return known->second.get();
    if (m_words.size() >= mostWords)
        m_words.clear();
    return m_words.emplace(word, shapeWord(word)).first->second.get();
}

CairoPdfWords::Glyphs CairoPdfWords::shapeWord(std::string_view word) const {
    Glyphs glyphs(pango_glyph_string_new());
    const auto length = static_cast<int>(word.size());
    pango_shape_full(word.data(), length, word.data(), length, &m_model->analysis, glyphs.get());
    return isComplete(*glyphs) ? std::move(glyphs) : nullptr;
}

PangoGlyphItem* CairoPdfWords::makeItem(std::string_view line, Glyphs glyphs) const {
    PangoGlyphItem* const made = g_slice_new0(PangoGlyphItem);
    made->item = pango_item_copy(m_model.get());
    made->item->offset = 0;
    made->item->length = static_cast<int>(line.size());
    made->item->num_chars = static_cast<int>(g_utf8_strlen(line.data(), made->item->length));
    made->glyphs = glyphs.release();
    return made;
}

} // namespace brisklog
