#pragma once

#include <memory>
#include <pango/pango.h>
#include <string>
#include <string_view>
#include <unordered_map>

namespace brisklog {

/// Shapes lines of plain text (letters of western Europe, digits, punctuation) word by word and caches the
/// words, because documents use few different ones. That takes a fraction of the time of shaping every line.
class CairoPdfWords {
public:
    CairoPdfWords(PangoContext* context, PangoAttrList* attributes);

    /// The line as a new item; null for text that is not plain or has characters the font does not have.
    [[nodiscard]] PangoGlyphItem* shape(std::string_view line);

private:
    struct FreeItem {
        void operator()(PangoItem* item) const { pango_item_free(item); }
    };

    struct FreeGlyphs {
        void operator()(PangoGlyphString* glyphs) const { pango_glyph_string_free(glyphs); }
    };

    /// Lets words be looked up without copying them.
    struct Hash : std::hash<std::string_view> {
        using is_transparent = void;
    };

    using Glyphs = std::unique_ptr<PangoGlyphString, FreeGlyphs>;

    /// The word's glyphs; null when the font does not have them all.
    [[nodiscard]] const PangoGlyphString* glyphsOf(std::string_view word);
    [[nodiscard]] Glyphs shapeWord(std::string_view word) const;
    [[nodiscard]] PangoGlyphItem* makeItem(std::string_view line, Glyphs glyphs) const;

    /// A piece of text in our font, the template for all others.
    std::unique_ptr<PangoItem, FreeItem> m_model;
    std::unordered_map<std::string, Glyphs, Hash, std::equal_to<>> m_words;
};

} // namespace brisklog
