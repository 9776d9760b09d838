#pragma once

#include "platform/PdfDocument.h"

#include <memory>
#include <string>

namespace brisklog {

/// What a document says about itself.
struct DocumentInformation {
    std::string creator;
    /// Empty writes no author.
    std::string author;
};

/// Makes PDF documents.
class PdfFacility {
public:
    virtual ~PdfFacility() = default;

    [[nodiscard]] virtual std::unique_ptr<PdfDocument> begin(const DocumentInformation& information) = 0;
};

} // namespace brisklog
