#include "platform/documents/CairoPdfPictures.h"

#include "platform/documents/CairoPdfImage.h"

#include <cmath>
#include <hb-ot.h>
#include <pango/pangocairo.h>

namespace brisklog {
namespace {

/// Sharp enough for paper: 576 dots per inch.
constexpr double pixelsPerPoint = 8;

cairo_scaled_font_t* scaledFontOf(PangoFont* font) {
    return pango_cairo_font_get_scaled_font(PANGO_CAIRO_FONT(font));
}

cairo_text_extents_t extentsOf(PangoFont* font, PangoGlyph glyph) {
    const cairo_glyph_t atOrigin{glyph, 0, 0};
    cairo_text_extents_t extents;
    cairo_scaled_font_glyph_extents(scaledFontOf(font), &atOrigin, 1, &extents);
    return extents;
}

int pixels(double points) { return static_cast<int>(std::ceil(points * pixelsPerPoint)); }

/// Selects the font for a drawing with a different scale.
void useFont(cairo_t* drawing, cairo_scaled_font_t* font) {
    cairo_matrix_t matrix;
    cairo_scaled_font_get_font_matrix(font, &matrix);
    cairo_set_font_face(drawing, cairo_scaled_font_get_font_face(font));
    cairo_set_font_matrix(drawing, &matrix);
}

} // namespace

bool CairoPdfPictures::areGlyphsOf(PangoFont* font) {
    hb_face_t* const face = hb_font_get_face(pango_font_get_hb_font(font));
    return hb_ot_color_has_png(face) != 0 || hb_ot_color_has_layers(face) != 0;
}

void CairoPdfPictures::beginPage() {
    for (auto& [key, copies] : m_glyphs)
        copies.usedOnPage = 0;
}

void CairoPdfPictures::show(PangoFont* font, PangoGlyph glyph, double x, double baseline) {
    Copies& copies = copiesOf(font, glyph);
    if (copies.usedOnPage == copies.pictures.size())
        copies.pictures.push_back(makePicture(font, glyph));
    cairo_surface_t* const picture = copies.pictures[copies.usedOnPage++].get();
    if (picture == nullptr)
        return;
    cairo_save(m_drawing);
    cairo_translate(m_drawing, x + copies.x, baseline + copies.y);
    cairo_scale(m_drawing, 1 / pixelsPerPoint, 1 / pixelsPerPoint);
    showImage(m_drawing, picture);
    cairo_restore(m_drawing);
}

CairoPdfPictures::Copies& CairoPdfPictures::copiesOf(PangoFont* font, PangoGlyph glyph) {
    Copies& copies = m_glyphs[{font, glyph}];
    if (copies.font == nullptr) {
        copies.font.reset(static_cast<PangoFont*>(g_object_ref(font)));
        const cairo_text_extents_t extents = extentsOf(font, glyph);
        copies.x = extents.x_bearing;
        copies.y = extents.y_bearing;
    }
    return copies;
}

CairoPdfPictures::Picture CairoPdfPictures::makePicture(PangoFont* font, PangoGlyph glyph) {
    const cairo_text_extents_t extents = extentsOf(font, glyph);
    if (extents.width <= 0 || extents.height <= 0)
        return nullptr;
    Picture picture(
        cairo_image_surface_create(CAIRO_FORMAT_ARGB32, pixels(extents.width), pixels(extents.height)));
    cairo_t* const drawing = cairo_create(picture.get());
    cairo_scale(drawing, pixelsPerPoint, pixelsPerPoint);
    useFont(drawing, scaledFontOf(font));
    const cairo_glyph_t placed{glyph, -extents.x_bearing, -extents.y_bearing};
    cairo_show_glyphs(drawing, &placed, 1);
    const cairo_status_t drawn = cairo_status(drawing);
    cairo_destroy(drawing);
    // A broken picture would make Cairo drop everything drawn after it.
    return drawn == CAIRO_STATUS_SUCCESS ? std::move(picture) : nullptr;
}

} // namespace brisklog
