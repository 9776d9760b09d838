#pragma once

#include "platform/PdfDocument.h"

#include <memory>
#include <string>

namespace brisklog {

/// A document's metadata.
struct DocumentInformation {
    std::string creator;
    /// No author is written if empty.
    std::string author;
};

/// Makes PDF documents.
class PdfFacility {
public:
    virtual ~PdfFacility() = default;

    [[nodiscard]] virtual std::unique_ptr<PdfDocument> begin(const DocumentInformation& information) = 0;
};

} // namespace brisklog
