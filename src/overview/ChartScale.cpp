#include "overview/ChartScale.h"

#include <algorithm>
#include <array>
#include <cmath>

namespace brisklog {
namespace {

constexpr int fewestSteps = 4;
constexpr int mostSteps = 6;
/// The smallest steps worth a grid line.
constexpr double quarterHour = 0.25;
constexpr double halfHour = 0.5;
constexpr double cent = 0.01;

/// The highest finite value; at least 0.
double highest(const std::vector<double>& values) {
    double result = 0;
    for (const double value : values)
        if (std::isfinite(value))
            result = std::max(result, value);
    return result;
}

bool isEnough(double step, double value) { return step * mostSteps >= value; }

ChartScale scaleWith(double step, double value) {
    return {step, std::clamp(static_cast<int>(std::ceil(value / step)), fewestSteps, mostSteps)};
}

/// The smallest step of 1, 2 or 5 × 10ⁿ, at least `smallest`, with which the value fits on the scale.
double roundStep(double value, double smallest) {
    const double least = std::max(value / mostSteps, smallest);
    const double power = std::pow(10, std::floor(std::log10(least)));
    for (const double factor : {1.0, 2.0, 5.0})
        if (factor * power >= smallest && isEnough(factor * power, value))
            return factor * power;
    return 10 * power;
}

} // namespace

double ChartScale::share(double value) const {
    if (!std::isfinite(value))
        return value < 0 ? 0 : 1;
    return std::clamp(value / top(), 0.0, 1.0);
}

std::vector<double> ChartScale::lines() const {
    std::vector<double> values;
    for (int i = 0; i <= stepCount; ++i)
        values.push_back(step * i);
    return values;
}

ChartScale hoursScale(const std::vector<double>& hours) {
    const double most = highest(hours);
    if (most <= 0)
        return {};
    for (const double step : {quarterHour, halfHour})
        if (step * fewestSteps >= most)
            return scaleWith(step, most);
    return scaleWith(roundStep(most, 1), most);
}

ChartScale moneyScale(const std::vector<double>& euros) {
    const double most = highest(euros);
    return most <= 0 ? ChartScale{} : scaleWith(roundStep(most, cent), most);
}

} // namespace brisklog
