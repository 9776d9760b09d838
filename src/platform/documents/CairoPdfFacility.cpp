#include "platform/documents/CairoPdfFacility.h"

#include "platform/documents/CairoPdfDocument.h"

#include <pango/pangocairo.h>

namespace brisklog {
namespace {

/// At this resolution, a font's size in points is its size on the page.
constexpr double pointsPerInch = 72;

std::shared_ptr<PangoFontMap> makeFonts() {
    PangoFontMap* const fonts = pango_cairo_font_map_new();
    pango_cairo_font_map_set_resolution(PANGO_CAIRO_FONT_MAP(fonts), pointsPerInch);
    return {fonts, [](PangoFontMap* map) { g_object_unref(map); }};
}

} // namespace

std::unique_ptr<PdfDocument> CairoPdfFacility::begin(const DocumentInformation& information) {
    if (!m_fonts)
        m_fonts = makeFonts();
    return std::make_unique<CairoPdfDocument>(m_fonts, information);
}

} // namespace brisklog
