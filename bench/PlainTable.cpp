#include "bench/PlainTable.h"

#include "platform/PdfDocument.h"

#include <cairo-pdf.h>
#include <pango/pangocairo.h>

namespace brisklog::bench {
namespace {

constexpr double margin = 50;
constexpr double rowHeight = 20;
constexpr double columnWidth = 90;
constexpr double pointsPerInch = 72;

cairo_status_t append(void* bytes, const unsigned char* data, unsigned int length) {
    static_cast<std::string*>(bytes)->append(reinterpret_cast<const char*>(data), length);
    return CAIRO_STATUS_SUCCESS;
}

void showRow(cairo_t* drawing, PangoLayout* layout, const PlainRow& row, double y) {
    double x = margin;
    for (const std::string& cell : row) {
        pango_layout_set_text(layout, cell.data(), static_cast<int>(cell.size()));
        cairo_move_to(drawing, x, y);
        pango_cairo_show_layout(drawing, layout);
        x += columnWidth;
    }
}

std::size_t writeTable(PangoFontMap* fonts, const std::vector<PlainRow>& rows) {
    std::string bytes;
    cairo_surface_t* const surface = cairo_pdf_surface_create_for_stream(append, &bytes, a4.width, a4.height);
    cairo_t* const drawing = cairo_create(surface);
    PangoContext* const context = pango_font_map_create_context(fonts);
    pango_cairo_update_context(drawing, context);
    PangoLayout* const layout = pango_layout_new(context);
    PangoFontDescription* const font = pango_font_description_from_string("Inter 10");
    pango_layout_set_font_description(layout, font);
    double y = margin;
    for (const PlainRow& row : rows) {
        if (y + rowHeight > a4.height - margin) {
            cairo_show_page(drawing);
            y = margin;
        }
        showRow(drawing, layout, row, y);
        y += rowHeight;
    }
    pango_font_description_free(font);
    g_object_unref(layout);
    g_object_unref(context);
    cairo_destroy(drawing);
    cairo_surface_finish(surface);
    cairo_surface_destroy(surface);
    return bytes.size();
}

} // namespace

void timePlainTable(benchmark::State& state, const std::vector<PlainRow>& rows) {
    PangoFontMap* const fonts = pango_cairo_font_map_new();
    pango_cairo_font_map_set_resolution(PANGO_CAIRO_FONT_MAP(fonts), pointsPerInch);
    // Fonts are looked up only once per process.
    benchmark::DoNotOptimize(writeTable(fonts, {{"x"}}));
    for (auto _ : state)
        benchmark::DoNotOptimize(writeTable(fonts, rows));
    g_object_unref(fonts);
}

} // namespace brisklog::bench
