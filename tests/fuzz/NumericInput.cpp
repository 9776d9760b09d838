// Numbers as a user types them.

#include "Fuzzer.h"

#include "foundation/NumericInput.h"
#include "foundation/Text.h"

#include <array>
#include <charconv>
#include <cmath>
#include <string>

namespace brisklog::fuzz {
namespace {

std::string typedForm(double number) {
    std::array<char, 64> text{};
    const auto end = std::to_chars(text.data(), text.data() + text.size(), number).ptr;
    return text::replacing(std::string(text.data(), end), '.', ',');
}

} // namespace

void tryInput(std::string_view bytes) {
    const std::string typed(bytes);
    const auto number = parseDecimal(typed);
    require(number == parseDecimal(text::replacing(typed, '.', ',')), "point and comma are the same");
    require(!parseDecimal(" " + typed) && !parseDecimal(typed + " "),
            "blanks around a number make it invalid");
    if (!number)
        return;
    require(std::isfinite(*number), "a number is finite");
    const auto again = parseDecimal(typedForm(*number));
    require(again == number && std::signbit(*again) == std::signbit(*number),
            "a number written in German is the same number");
}

} // namespace brisklog::fuzz
