#include "foundation/NumericInput.h"

#include "foundation/Text.h"

#include <charconv>
#include <cmath>

namespace brisklog {

std::optional<double> parseDecimal(std::string_view typed) {
    const std::string number = text::replacing(std::string(typed), ',', '.');
    const char* begin = number.data();
    const char* const end = begin + number.size();
    // from_chars rejects "+", so one is skipped, but not before "-": "+-1" must stay invalid.
    if (number.size() > 1 && *begin == '+' && number[1] != '-')
        ++begin;
    double value = 0;
    const auto [parsedTo, error] = std::from_chars(begin, end, value);
    if (error != std::errc() || parsedTo != end || !std::isfinite(value))
        return std::nullopt;
    return value;
}

} // namespace brisklog
