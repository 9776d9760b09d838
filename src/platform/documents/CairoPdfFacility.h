#pragma once

#include "platform/PdfFacility.h"

#include <memory>
#include <pango/pango.h>

namespace brisklog {

/// Makes PDF documents with Cairo and Pango. The fonts are looked for when the first document is begun, and
/// kept: finding them again takes longer than a whole invoice.
class CairoPdfFacility final : public PdfFacility {
public:
    [[nodiscard]] std::unique_ptr<PdfDocument> begin(const DocumentInformation& information) override;

private:
    std::shared_ptr<PangoFontMap> m_fonts;
};

} // namespace brisklog
