#pragma once

#include "platform/PdfDocument.h"

#include <cstddef>
#include <memory>
#include <string>

namespace brisklog {

/// A document's metadata.
struct DocumentInformation {
    std::string creator;
    /// No author or title is written if empty.
    std::string author;
    std::string title;
    /// The rows of its table. Their tags take some 700 bytes a row, so a document of more than 500 has none.
    std::size_t tableRows = 0;
};

/// Makes PDF documents.
class PdfFacility {
public:
    virtual ~PdfFacility() = default;

    [[nodiscard]] virtual std::unique_ptr<PdfDocument> begin(const DocumentInformation& information) = 0;
};

} // namespace brisklog
