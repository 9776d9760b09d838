#include "invoice/SenderLines.h"

#include "foundation/Text.h"

namespace brisklog {

void addLine(std::vector<std::string>& lines, const std::string& value, const char* label) {
    if (!value.empty())
        lines.push_back(label + value);
}

std::string joined(const std::string& first, const std::string& second) {
    const std::string both = first + " " + second;
    return std::string(text::trimmed(both));
}

} // namespace brisklog
