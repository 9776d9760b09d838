#pragma once

#include <string>
#include <vector>

namespace brisklog {

/// Adds a line with the label and the value; an empty value adds none.
void addLine(std::vector<std::string>& lines, const std::string& value, const char* label = "");

/// Both, separated by a space and trimmed; empty when both are.
[[nodiscard]] std::string joined(const std::string& first, const std::string& second);

} // namespace brisklog
