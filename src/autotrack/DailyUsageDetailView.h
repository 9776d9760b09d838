#pragma once

#include "autotrack/DailyAppUsage.h"

#include <optional>
#include <string>
#include <vector>

namespace brisklog {

/// One application's usage on a day.
struct AppUsageDetailRow {
    std::string appName;
    TimeInterval duration = 0;
    /// A PNG image, not yet checked or decoded; absent when the first session of that name had none.
    std::optional<SharedData> iconData;

    /// 1 h 30 min 7 s, zero units included.
    [[nodiscard]] std::string durationText() const;

    bool operator==(const AppUsageDetailRow&) const = default;
};

/// A snapshot of a day's usage; recording or deleting sessions later does not affect it.
class DailyUsageDetailView {
public:
    /// Sessions without an end count up to `now`.
    DailyUsageDetailView(const DailyAppUsage& dailyUsage, Date now);

    /// "Gesamtzeit: 11 h 59 min"
    [[nodiscard]] std::string header() const;

    /// One per application name, the longest usage first, equal ones by name.
    [[nodiscard]] const std::vector<AppUsageDetailRow>& rows() const { return m_rows; }

private:
    TimeInterval m_totalDuration;
    std::vector<AppUsageDetailRow> m_rows;
};

} // namespace brisklog
