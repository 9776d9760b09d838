#include "foundation/NumericInput.h"

#include "foundation/Text.h"

#include <charconv>
#include <cmath>

namespace brisklog {
namespace {

constexpr int minutesPerHour = 60;
/// More hours would not be a duration that anybody types.
constexpr double mostHours = 9999;

/// No digits at all count as zero.
std::optional<int> parseDigits(std::string_view digits) {
    int value = 0;
    const char* const end = digits.data() + digits.size();
    const auto [parsedTo, error] = std::from_chars(digits.data(), end, value);
    if (digits.empty())
        return 0;
    if (error != std::errc() || parsedTo != end || value < 0 || value > mostHours)
        return std::nullopt;
    return value;
}

std::optional<int> parseHours(std::string_view typed) {
    const auto hours = parseDecimal(typed);
    if (!hours || *hours < 0 || *hours > mostHours)
        return std::nullopt;
    return static_cast<int>(std::lround(*hours * minutesPerHour));
}

} // namespace

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

std::optional<int> parseDuration(std::string_view typed) {
    const auto colon = typed.find(':');
    if (colon == std::string_view::npos)
        return typed.find(',') == std::string_view::npos ? std::nullopt : parseHours(typed);
    const auto hours = parseDigits(typed.substr(0, colon));
    const auto minutes = parseDigits(typed.substr(colon + 1));
    if (typed.size() == 1 || !hours || !minutes || *minutes >= minutesPerHour)
        return std::nullopt;
    return *hours * minutesPerHour + *minutes;
}

} // namespace brisklog
