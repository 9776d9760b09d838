#pragma once

#include <algorithm>
#include <array>
#include <optional>
#include <string_view>

/// The choices among the settings. An option's raw value is the label shown for it and at the same time what
/// files hold: re-spelling one would make existing files lose it.
namespace brisklog {

/// Appearance chosen by the user.
enum class ColorSchemeOption { light, dark };

/// Grid for recorded times. Kept for a later version: nothing is rounded by it.
enum class TimeRoundingOption { none, fiveMinutes, tenMinutes, fifteenMinutes };

/// Direction of rounding on invoices. Kept for a later version: nothing is rounded by it.
enum class InvoiceRoundingOption { none, roundUp, roundDown, roundNearest };

[[nodiscard]] std::string_view rawValue(ColorSchemeOption option);
[[nodiscard]] std::string_view rawValue(TimeRoundingOption option);
[[nodiscard]] std::string_view rawValue(InvoiceRoundingOption option);

/// All cases of an option, in the order in which they are offered.
template <class Option>
inline constexpr std::array<Option, 0> allOptions{};

template <>
inline constexpr std::array allOptions<ColorSchemeOption>{ColorSchemeOption::light, ColorSchemeOption::dark};

template <>
inline constexpr std::array allOptions<TimeRoundingOption>{
    TimeRoundingOption::none, TimeRoundingOption::fiveMinutes, TimeRoundingOption::tenMinutes,
    TimeRoundingOption::fifteenMinutes};

template <>
inline constexpr std::array allOptions<InvoiceRoundingOption>{
    InvoiceRoundingOption::none, InvoiceRoundingOption::roundUp, InvoiceRoundingOption::roundDown,
    InvoiceRoundingOption::roundNearest};

/// The option with that raw value, compared as a whole and exactly; none for any other text.
template <class Option>
[[nodiscard]] std::optional<Option> optionWithRawValue(std::string_view text) {
    const auto& all = allOptions<Option>;
    const auto found = std::ranges::find(all, text, [](Option option) { return rawValue(option); });
    return found == all.end() ? std::nullopt : std::optional(*found);
}

} // namespace brisklog
