#pragma once

#include "platform/PdfFacility.h"
#include "platform/documents/CairoPdfText.h"

#include <cairo.h>
#include <memory>
#include <string>

namespace brisklog {

/// One PDF document on a Cairo surface that writes into memory.
class CairoPdfDocument final : public PdfDocument {
public:
    CairoPdfDocument(std::shared_ptr<PangoFontMap> fonts, const DocumentInformation& information);
    /// Not copyable, because the surface writes to this object.
    CairoPdfDocument(const CairoPdfDocument&) = delete;
    CairoPdfDocument& operator=(const CairoPdfDocument&) = delete;

    void beginPage() override;
    void beginPart(PdfRole role) override;
    void endPart(PdfRole role) override;
    void drawLine(std::string_view text, const PageRectangle& box, const TextStyle& style) override;
    void drawNumber(std::string_view text, const PageRectangle& box, const TextStyle& style) override;
    [[nodiscard]] double widthOfNumber(std::string_view text, const TextStyle& style) override;
    [[nodiscard]] std::string drawWrapped(std::string_view text, const PageRectangle& box,
                                          const TextStyle& style) override;
    [[nodiscard]] std::string restOfWrapped(std::string_view text, const PageSize& room,
                                            const TextStyle& style) override;
    [[nodiscard]] PageSize sizeOfWrapped(std::string_view text, double width,
                                         const TextStyle& style) override;
    void drawRule(double fromX, double toX, double y) override;
    void fillRectangle(const PageRectangle& box, double brightness) override;
    void drawImage(std::string_view encoded, const PageRectangle& box) override;
    [[nodiscard]] std::string finish() override;

private:
    struct DestroySurface {
        void operator()(cairo_surface_t* surface) const { cairo_surface_destroy(surface); }
    };

    struct DestroyDrawing {
        void operator()(cairo_t* drawing) const { cairo_destroy(drawing); }
    };

    void setInformation(const DocumentInformation& information);
    void beginTag(const char* name);
    void endTag(const char* name);

    // The order matters: the bytes must outlive the surface that writes to them.
    std::string m_bytes;
    std::shared_ptr<PangoFontMap> m_fonts;
    std::unique_ptr<cairo_surface_t, DestroySurface> m_surface;
    std::unique_ptr<cairo_t, DestroyDrawing> m_drawing;
    CairoPdfText m_text;
    bool m_hasPage = false;
    bool m_isTagged;
};

} // namespace brisklog
