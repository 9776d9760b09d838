#pragma once

#include "platform/PdfDocument.h"

#include <string>

namespace brisklog {

/// Begins the pages of a document. On each after the first, the top right says which it is: "Rechnung 42 ·
/// Seite 2 von 3".
class NumberedPages {
public:
    /// The page must outlive this; `name` is what the document calls itself.
    NumberedPages(PdfDocument& page, std::string name);

    /// Must be known before the second page.
    void setCount(int count) { m_count = count; }

    void begin();

private:
    PdfDocument& m_page;
    std::string m_name;
    int m_current = 0;
    int m_count = 1;
};

} // namespace brisklog
