#include "platform/documents/CairoPdfDocument.h"

#include "platform/documents/CairoPdfCharacters.h"
#include "platform/documents/CairoPdfImage.h"

#include <algorithm>
#include <cairo-pdf.h>
#include <string_view>
#include <utility>

namespace brisklog {
namespace {

constexpr double ruleWidth = 0.5;
constexpr double grey = 0.5;

cairo_status_t append(void* bytes, const unsigned char* data, unsigned int length) {
    static_cast<std::string*>(bytes)->append(reinterpret_cast<const char*>(data), length);
    return CAIRO_STATUS_SUCCESS;
}

constexpr std::size_t mostTaggedRows = 500;
constexpr const char* wholeDocument = "Document";

const char* tagOf(PdfRole role) {
    switch (role) {
    case PdfRole::heading:
        return "H1";
    case PdfRole::paragraph:
        return "P";
    case PdfRole::table:
        return "Table";
    case PdfRole::tableRow:
        return "TR";
    case PdfRole::columnTitle:
        return "TH";
    case PdfRole::tableCell:
        return "TD";
    }
    return nullptr;
}

/// Cairo cannot write a document's language, so it is added to the catalog. That is the last object: only the
/// table of objects behind it moves, whose place is written at the very end.
void addLanguage(std::string& bytes) {
    constexpr std::string_view language = "   /Lang (de-DE)\n";
    constexpr std::string_view beforePlace = "startxref\n";
    const std::size_t catalog = bytes.rfind("<< /Type /Catalog\n");
    const std::size_t place = bytes.rfind(beforePlace);
    if (catalog == bytes.npos || place == bytes.npos || bytes.find("\nxref\n", catalog) == bytes.npos)
        return;
    const std::size_t moved = bytes.find("\nxref\n", catalog) + 1 + language.size();
    bytes.replace(place + beforePlace.size(), bytes.npos, std::to_string(moved) + "\n%%EOF\n");
    bytes.insert(bytes.find('\n', catalog) + 1, language);
}

/// Pages are measured from the bottom; Cairo measures from the top.
double fromTop(double y) { return a4.height - y; }

double topOf(const PageRectangle& box) { return fromTop(box.y + box.height); }

} // namespace

CairoPdfDocument::CairoPdfDocument(std::shared_ptr<PangoFontMap> fonts,
                                   const DocumentInformation& information)
    : m_fonts(std::move(fonts)),
      m_surface(cairo_pdf_surface_create_for_stream(append, &m_bytes, a4.width, a4.height)),
      m_drawing(cairo_create(m_surface.get())), m_text(m_drawing.get(), m_fonts.get()),
      m_isTagged(information.tableRows <= mostTaggedRows) {
    setInformation(information);
    beginTag(wholeDocument);
}

void CairoPdfDocument::setInformation(const DocumentInformation& information) {
    const auto set = [this](cairo_pdf_metadata_t key, const std::string& value) {
        if (!value.empty())
            cairo_pdf_surface_set_metadata(m_surface.get(), key, printableLine(value).c_str());
    };
    set(CAIRO_PDF_METADATA_CREATOR, information.creator);
    set(CAIRO_PDF_METADATA_AUTHOR, information.author);
    set(CAIRO_PDF_METADATA_TITLE, information.title);
}

void CairoPdfDocument::beginTag(const char* name) {
    if (!m_isTagged)
        return;
    m_text.flush();
    cairo_tag_begin(m_drawing.get(), name, nullptr);
}

void CairoPdfDocument::endTag(const char* name) {
    if (!m_isTagged)
        return;
    m_text.flush();
    cairo_tag_end(m_drawing.get(), name);
}

void CairoPdfDocument::beginPage() {
    m_text.flush();
    if (m_hasPage)
        cairo_show_page(m_drawing.get());
    m_hasPage = true;
    m_text.beginPage();
}

void CairoPdfDocument::beginPart(PdfRole role) { beginTag(tagOf(role)); }

void CairoPdfDocument::endPart(PdfRole role) { endTag(tagOf(role)); }

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
    showImage(drawing, image.get());
    cairo_restore(drawing);
}

std::string CairoPdfDocument::finish() {
    m_text.flush();
    endTag(wholeDocument);
    if (m_hasPage)
        cairo_show_page(m_drawing.get());
    const cairo_status_t drawn = cairo_status(m_drawing.get());
    cairo_surface_finish(m_surface.get());
    const cairo_status_t written = cairo_surface_status(m_surface.get());
    if (drawn != CAIRO_STATUS_SUCCESS || written != CAIRO_STATUS_SUCCESS)
        return {};
    addLanguage(m_bytes);
    return std::move(m_bytes);
}

} // namespace brisklog
