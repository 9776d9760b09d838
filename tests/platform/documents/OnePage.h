#pragma once

#include "platform/documents/CairoPdfFacility.h"

#include <functional>
#include <string>

namespace brisklog::test {

/// A document of one page with whatever `draw` puts there.
inline std::string onePage(const std::function<void(PdfDocument&)>& draw,
                           const DocumentInformation& information = {}) {
    CairoPdfFacility facility;
    const auto document = facility.begin(information);
    document->beginPage();
    draw(*document);
    return document->finish();
}

} // namespace brisklog::test
