#pragma once

#include <optional>
#include <string_view>

namespace brisklog {

/// Reads a decimal number as a German user types it: every "," counts as ".", one leading sign is allowed,
/// and the whole text must be the number. None for anything else, including grouped digits ("1.234,50"),
/// surrounding spaces and numbers that are not finite.
[[nodiscard]] std::optional<double> parseDecimal(std::string_view typed);

/// Reads a duration as a German user types it, in minutes: "1:30", of which either side may be left out, or
/// hours with a comma, "1,5", to the nearest minute. None for anything else, whole numbers and negative
/// durations included.
[[nodiscard]] std::optional<int> parseDuration(std::string_view typed);

} // namespace brisklog
