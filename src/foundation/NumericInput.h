#pragma once

#include <optional>
#include <string_view>

namespace brisklog {

/// Reads a decimal number as a German user types it: every "," counts as ".", one leading sign is allowed,
/// and the whole text must be the number. None for anything else, including grouped digits ("1.234,50"),
/// surrounding spaces and numbers that are not finite.
[[nodiscard]] std::optional<double> parseDecimal(std::string_view typed);

} // namespace brisklog
