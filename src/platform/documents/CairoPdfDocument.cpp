#include "platform/documents/CairoPdfDocument.h"

#include "platform/documents/CairoPdfCharacters.h"
#include "platform/documents/CairoPdfImage.h"

#include <algorithm>
#include <cairo-pdf.h>
#include <utility>

namespace brisklog {
namespace {

constexpr double ruleWidth = 0.5;
constexpr double grey = 0.5;

cairo_status_t append(void* bytes, const unsigned char* data, unsigned int length) {
    static_cast<std::string*>(bytes)->append(reinterpret_cast<const char*>(data), length);
    return CAIRO_STATUS_SUCCESS;
}

/// Pages are measured from the bottom; Cairo measures from the top.
double fromTop(double y) { return a4.height - y; }

double topOf(const PageRectangle& box) { return fromTop(box.y + box.height); }

} // namespace

CairoPdfDocument::CairoPdfDocument(std::shared_ptr<PangoFontMap> fonts,
                                   const DocumentInformation& information)
    : m_fonts(std::move(fonts)),
      m_surface(cairo_pdf_surface_create_for_stream(append, &m_bytes, a4.width, a4.height)),
      m_drawing(cairo_create(m_surface.get())), m_text(m_drawing.get(), m_fonts.get()) {
    setInformation(information);
}

void CairoPdfDocument::setInformation(const DocumentInformation& information) {
    const auto set = [this](cairo_pdf_metadata_t key, const std::string& value) {
        if (!value.empty())
            cairo_pdf_surface_set_metadata(m_surface.get(), key, printableLine(value).c_str());
    };
    set(CAIRO_PDF_METADATA_CREATOR, information.creator);
    set(CAIRO_PDF_METADATA_AUTHOR, information.author);
}

void CairoPdfDocument::beginPage() {
    m_text.flush();
    if (m_hasPage)
        cairo_show_page(m_drawing.get());
    m_hasPage = true;
    m_text.beginPage();
}

void CairoPdfDocument::drawLine(std::string_view text, const PageRectangle& box, const TextStyle& style) {
    m_text.drawLine(text, box.x, topOf(box), box.width, style);
}

void CairoPdfDocument::drawNumber(std::string_view text, const PageRectangle& box, const TextStyle& style) {
    m_text.drawNumber(text, box.x, topOf(box), box.width, style);
}

double CairoPdfDocument::widthOfNumber(std::string_view text, const TextStyle& style) {
    return m_text.widthOfNumber(text, style);
}

std::string CairoPdfDocument::drawWrapped(std::string_view text, const PageRectangle& box,
                                          const TextStyle& style) {
    return m_text.drawWrapped(text, box.x, topOf(box), {box.width, box.height}, style);
}

std::string CairoPdfDocument::restOfWrapped(std::string_view text, const PageSize& room,
                                            const TextStyle& style) {
    return m_text.restOfWrapped(text, room, style);
}

PageSize CairoPdfDocument::sizeOfWrapped(std::string_view text, double width, const TextStyle& style) {
    return m_text.sizeOfWrapped(text, width, style);
}

void CairoPdfDocument::drawRule(double fromX, double toX, double y) {
    m_text.flush();
    cairo_t* const drawing = m_drawing.get();
    cairo_save(drawing);
    cairo_set_source_rgb(drawing, grey, grey, grey);
    cairo_set_line_width(drawing, ruleWidth);
    cairo_move_to(drawing, fromX, fromTop(y));
    cairo_line_to(drawing, toX, fromTop(y));
    cairo_stroke(drawing);
    cairo_restore(drawing);
}

void CairoPdfDocument::fillRectangle(const PageRectangle& box, double brightness) {
    m_text.flush();
    cairo_t* const drawing = m_drawing.get();
    cairo_save(drawing);
    cairo_set_source_rgb(drawing, brightness, brightness, brightness);
    cairo_rectangle(drawing, box.x, topOf(box), box.width, box.height);
    cairo_fill(drawing);
    cairo_restore(drawing);
}

void CairoPdfDocument::drawImage(std::string_view encoded, const PageRectangle& box) {
    const auto image = decodedImage(encoded);
    if (!image)
        return;
    m_text.flush();
    const double width = cairo_image_surface_get_width(image.get());
    const double height = cairo_image_surface_get_height(image.get());
    const double scale = std::min({1.0, box.width / width, box.height / height});
    cairo_t* const drawing = m_drawing.get();
    cairo_save(drawing);
    cairo_translate(drawing, box.x + (box.width - width * scale) / 2, topOf(box));
    cairo_scale(drawing, scale, scale);
    cairo_set_source_surface(drawing, image.get(), 0, 0);
    cairo_paint(drawing);
    cairo_restore(drawing);
}

std::string CairoPdfDocument::finish() {
    m_text.flush();
    if (m_hasPage)
        cairo_show_page(m_drawing.get());
    const cairo_status_t drawn = cairo_status(m_drawing.get());
    cairo_surface_finish(m_surface.get());
    const cairo_status_t written = cairo_surface_status(m_surface.get());
    if (drawn != CAIRO_STATUS_SUCCESS || written != CAIRO_STATUS_SUCCESS)
        return {};
    return std::move(m_bytes);
}

} // namespace brisklog
