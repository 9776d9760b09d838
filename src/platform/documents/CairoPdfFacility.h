#pragma once

#include "platform/PdfFacility.h"

#include <memory>
#include <pango/pango.h>

namespace brisklog {

/// Makes PDF documents with Cairo and Pango. Fonts are looked up when the first document is begun and then
/// cached: looking them up again takes longer than a whole invoice.
class CairoPdfFacility final : public PdfFacility {
public:
    [[nodiscard]] std::unique_ptr<PdfDocument> begin(const DocumentInformation& information) override;

private:
    std::shared_ptr<PangoFontMap> m_fonts;
};

} // namespace brisklog
