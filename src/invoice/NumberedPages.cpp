#include "invoice/NumberedPages.h"

#include "invoice/LineBlock.h"

#include <algorithm>
#include <utility>

namespace brisklog {
namespace {

/// Above everything else on the page.
constexpr PageRectangle pageNumberBox{50, 794, a4.width - 100, 26};

} // namespace

NumberedPages::NumberedPages(PdfDocument& page, std::string name) : m_page(page), m_name(std::move(name)) {}

void NumberedPages::begin() {
    m_page.beginPage();
    if (++m_current == 1)
        return;
    const std::string line =
        m_name + " · Seite " + std::to_string(m_current) + " von " + std::to_string(m_count);
    const auto& [x, y, width, height] = pageNumberBox;
    const double needed = std::min(m_page.widthOfNumber(line, {}), width);
    LineBlock(m_page, {{line}}, {needed, height}).draw(x + width - needed, y + height);
}

} // namespace brisklog
