#pragma once

#include "autotrack/DailyAppUsage.h"

#include <optional>
#include <string>
#include <vector>

namespace brisklog {

/// One application's use on a day.
struct AppUsageDetailRow {
    std::string appName;
    TimeInterval duration = 0;
    /// A PNG image, not yet looked at; absent when the first session of that name had none.
    std::optional<SharedData> iconData;

    /// 1 h 30 min 7 s, zero units included.
    [[nodiscard]] std::string durationText() const;

    bool operator==(const AppUsageDetailRow&) const = default;
};

/// A day's use as it was at one moment; what is recorded or deleted later does not reach it.
class DailyUsageDetailView {
public:
    /// Sessions without an end count up to `now`.
    DailyUsageDetailView(const DailyAppUsage& dailyUsage, Date now);

    /// "Gesamtzeit: 11 h 59 min"
    [[nodiscard]] std::string header() const;

    /// One per application name, the longest use first, equal ones by name.
    [[nodiscard]] const std::vector<AppUsageDetailRow>& rows() const { return m_rows; }

private:
    TimeInterval m_totalDuration;
    std::vector<AppUsageDetailRow> m_rows;
};

} // namespace brisklog
