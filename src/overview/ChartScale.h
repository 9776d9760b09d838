#pragma once

#include <functional>
#include <string>
#include <vector>

namespace brisklog {

/// The value axis of a bar chart: from 0 up to `top` in equal steps.
struct ChartScale {
    double step = 1;
    int stepCount = 1;

    [[nodiscard]] double top() const { return step * stepCount; }

    /// How much of the axis the value fills, 0 to 1; values below the axis fill none of it, those beyond it
    /// and what is no number all.
    [[nodiscard]] double share(double value) const;

    /// The value of each grid line, the base line first.
    [[nodiscard]] std::vector<double> lines() const;

    bool operator==(const ChartScale&) const = default;
};

/// Four to six steps of quarters, halves or 1, 2, 5 or 10 × 10ⁿ hours; one step of an hour when nothing was
/// worked.
[[nodiscard]] ChartScale hoursScale(const std::vector<double>& hours);

/// Four to six steps of 1, 2 or 5 × 10ⁿ euros, never below a cent; one step of a euro when there is nothing.
[[nodiscard]] ChartScale moneyScale(const std::vector<double>& euros);

/// One bar as it is read: what stands under it, its height, and what its tooltip and a screen reader say.
struct ChartBar {
    std::string label;
    double value = 0;
    std::string description;

    bool operator==(const ChartBar&) const = default;
};

/// A chart ready to be drawn.
struct ChartContent {
    std::string valueTitle;
    std::string labelTitle;
    ChartScale scale;
    /// One for each of the scale's lines.
    std::vector<std::string> valueLabels;
    std::vector<ChartBar> bars;

    bool operator==(const ChartContent&) const = default;
};

} // namespace brisklog
