#pragma once

#include "support/PdfReader.h"

#include <string_view>
#include <vector>

namespace brisklog::test {

/// How far, in points, a text may be from its place.
inline constexpr double placeTolerance = 0.5;

/// Expects the phrase to begin at `x`, at the top of a rectangle whose bottom edge is `y` above the page's
/// bottom edge.
void expectLine(const PdfReader& pdf, std::string_view phrase, double x, double y, double height = 14,
                int page = 1);

/// Expects the phrase to end at `right`, at the top of a line whose bottom edge is `y`.
void expectNumber(const PdfReader& pdf, std::string_view phrase, double right, double y, int page = 1);

/// Expects no two words to overlap more than kerning and tall letters explain.
void expectNothingPrintedOver(const PdfReader& pdf);

/// Every place of the word, from the top of the first page on.
[[nodiscard]] std::vector<PdfBox> placesOf(const PdfReader& pdf, std::string_view word);

} // namespace brisklog::test
