#include "core/Customer.h"

#include "foundation/Text.h"

#include <algorithm>

namespace brisklog {
namespace {

struct GenderTexts {
    Gender gender;
    std::string_view letter;
    std::string_view salutation;
};

constexpr std::array genderTexts{GenderTexts{Gender::male, "m", "Herr"},
                                 GenderTexts{Gender::female, "w", "Frau"},
                                 GenderTexts{Gender::diverse, "d", "Divers"}};

const GenderTexts& textsOf(Gender gender) {
    return *std::ranges::find(genderTexts, gender, &GenderTexts::gender);
}

void appendLine(std::string& text, std::string_view line) {
    if (line.empty())
        return;
    if (!text.empty())
        text += '\n';
    text += line;
}

} // namespace

std::string_view salutationWord(Gender gender) { return textsOf(gender).salutation; }

std::string_view jsonText(Gender gender) { return textsOf(gender).letter; }

bool fromJsonText(std::string_view text, Gender& gender) {
    const auto* const found = std::ranges::find(genderTexts, text, &GenderTexts::letter);
    if (found == genderTexts.end())
        return false;
    gender = found->gender;
    return true;
}

std::string Customer::formattedSalutation() const {
    if (firstName.empty() && name.empty())
        return {};
    const char* const between = firstName.empty() || name.empty() ? "" : " ";
    return std::string(salutationWord(gender)) + " " + firstName + between + name;
}

std::string Customer::formattedAddress() const {
    std::string lines;
    appendLine(lines, formattedSalutation());
    appendLine(lines, company);
    appendLine(lines, address);
    appendLine(lines, cityLine());
    return lines;
}

std::string Customer::cityLine() const {
    const std::string line = postalCode + " " + city;
    return std::string(text::trimmed(line));
}

} // namespace brisklog
