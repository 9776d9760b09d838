#include "support/PdfPlaces.h"

#include "platform/PdfDocument.h"

#include <algorithm>
#include <cmath>
#include <gtest/gtest.h>

namespace brisklog::test {
namespace {

/// Kerning may set letters on one line a little closer than their boxes; and along a whole line from right to
/// left, the widths that a document states in thousandths of the size add up to half a point less than they
/// are.
double kerningOf(const PdfBox& a, const PdfBox& b) {
    const double narrower = std::min(a.right - a.left, b.right - b.left);
    return std::max(0.7, narrower / 3);
}

/// In scripts with tall letters the boxes reach a little into the line above, the letters do not.
double tallnessOf(const PdfBox& a, const PdfBox& b) {
    return std::min(a.bottom - a.top, b.bottom - b.top) / 5;
}

bool overlap(const PdfBox& a, const PdfBox& b) {
    constexpr double hair = 0.2;
    const bool areOnOneLine = std::abs(a.top - b.top) < 1;
    const double across = std::min(a.right, b.right) - std::max(a.left, b.left);
    const double down = std::min(a.bottom, b.bottom) - std::max(a.top, b.top);
    return a.page == b.page && down > tallnessOf(a, b) && across > (areOnOneLine ? kerningOf(a, b) : hair);
}

} // namespace

void expectLine(const PdfReader& pdf, std::string_view phrase, double x, double y, double height, int page) {
    const auto box = pdf.find(phrase, page);
    ASSERT_TRUE(box) << phrase;
    EXPECT_NEAR(box->left, x, placeTolerance) << phrase;
    EXPECT_NEAR(box->top, a4.height - y - height, placeTolerance) << phrase;
}

void expectNumber(const PdfReader& pdf, std::string_view phrase, double right, double y, int page) {
    const auto box = pdf.find(phrase, page);
    ASSERT_TRUE(box) << phrase;
    EXPECT_NEAR(box->right, right, placeTolerance) << phrase;
    EXPECT_NEAR(box->top, a4.height - y - 14, placeTolerance) << phrase;
}

void expectNothingPrintedOver(const PdfReader& pdf) {
    // Words are sorted by page and top, so only those that begin above a word's bottom can meet it.
    constexpr double lineSlack = 1;
    const auto& words = pdf.words();
    for (std::size_t i = 0; i < words.size(); ++i)
        for (std::size_t j = i + 1; j < words.size() && words[j].box.page == words[i].box.page &&
                                    words[j].box.top < words[i].box.bottom + lineSlack;
             ++j)
            EXPECT_FALSE(overlap(words[i].box, words[j].box))
                << words[i].text << " and " << words[j].text << " on page " << words[i].box.page;
}

std::vector<PdfBox> placesOf(const PdfReader& pdf, std::string_view word) {
    std::vector<PdfBox> places;
    for (const PdfWord& each : pdf.words())
        if (each.text == word)
            places.push_back(each.box);
    return places;
}

} // namespace brisklog::test
