#pragma once

#include <string>
#include <vector>

namespace brisklog {

/// Adds the value to the lines, behind its label; an empty value gives no line.
void addLine(std::vector<std::string>& lines, const std::string& value, const char* label = "");

/// Both with a blank between, without blanks at the ends; empty when both are.
[[nodiscard]] std::string joined(const std::string& first, const std::string& second);

} // namespace brisklog
