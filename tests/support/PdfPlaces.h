#pragma once

#include "support/PdfReader.h"

#include <string_view>
#include <vector>

namespace brisklog::test {

/// How far, in points, a text may stand from its place.
inline constexpr double placeTolerance = 0.5;

/// The phrase begins at `x` and hangs from the top of a rectangle whose bottom edge is `y`, measured from the
/// page's bottom edge.
void expectLine(const PdfReader& pdf, std::string_view phrase, double x, double y, double height = 14,
                int page = 1);

/// The phrase ends at `right` and hangs from the top of a line whose bottom edge is `y`.
void expectNumber(const PdfReader& pdf, std::string_view phrase, double right, double y, int page = 1);

/// No two words share more of the page than letters of neighbouring words and lines do.
void expectNothingPrintedOver(const PdfReader& pdf);

/// Where the word stands, from the top of the first page on.
[[nodiscard]] std::vector<PdfBox> placesOf(const PdfReader& pdf, std::string_view word);

} // namespace brisklog::test
