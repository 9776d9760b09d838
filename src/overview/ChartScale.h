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

    /// The fraction of the axis that the value fills, 0 to 1: 0 for values below the axis, 1 for values
    /// beyond it and NaN.
    [[nodiscard]] double share(double value) const;

    /// The value of each grid line, starting with the base line.
    [[nodiscard]] std::vector<double> lines() const;

    bool operator==(const ChartScale&) const = default;
};

/// Four to six steps of a quarter, a half, or 1, 2, 5 or 10 × 10ⁿ hours; a single step of one hour when
/// nothing was worked.
[[nodiscard]] ChartScale hoursScale(const std::vector<double>& hours);

/// Four to six steps of 1, 2 or 5 × 10ⁿ euros, at least a cent; a single step of one euro when nothing was
/// earned.
[[nodiscard]] ChartScale moneyScale(const std::vector<double>& euros);

/// One bar: the label below it, its height, and the text of its tooltip and for screen readers.
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
