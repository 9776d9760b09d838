#include "autotrack/DailyUsageDetailView.h"

#include "foundation/GermanFormat.h"

#include <algorithm>
#include <compare>
#include <string_view>
#include <unordered_map>

namespace brisklog {
namespace {

using FirstSessions = std::unordered_map<std::string_view, const AppUsageSession*>;

FirstSessions firstSessionByName(const DailyAppUsage& dailyUsage) {
    FirstSessions first;
    for (const AppUsageSession& session : dailyUsage.sessions)
        first.try_emplace(session.appName, &session);
    return first;
}

/// A valid order even if extreme dates made a duration NaN.
bool isLonger(const AppUsageDetailRow& row, const AppUsageDetailRow& other) {
    return std::weak_order(row.duration, other.duration) > 0;
}

} // namespace

std::string AppUsageDetailRow::durationText() const {
    return format::paddedDurationWithSeconds(duration, "--");
}

DailyUsageDetailView::DailyUsageDetailView(const DailyAppUsage& dailyUsage, Date now)
    : m_totalDuration(dailyUsage.totalDuration(now)) {
    const FirstSessions first = firstSessionByName(dailyUsage);
    for (const auto& [name, duration] : dailyUsage.durationByApp(now))
        m_rows.push_back({.appName = name, .duration = duration, .iconData = first.at(name)->iconData});
    std::ranges::stable_sort(m_rows, isLonger);
}

std::string DailyUsageDetailView::header() const {
    return "Gesamtzeit: " + format::duration(m_totalDuration, "--");
}

} // namespace brisklog
