#include "core/TimeEntry.h"

#include "foundation/GermanFormat.h"

namespace brisklog {
namespace {

constexpr const char* nothingToShow = "--";

} // namespace

TimeInterval TimeEntry::duration(Date now) const { return endTime.value_or(now).since(startTime); }

double TimeEntry::earnings(std::optional<double> projectRate, Date now) const {
    const auto rate = hourlyRate ? hourlyRate : projectRate;
    return rate ? *rate * duration(now) / secondsPerHour : 0;
}

std::string TimeEntry::formattedEarnings(std::optional<double> projectRate, Date now) const {
    if (!hourlyRate && !projectRate)
        return nothingToShow;
    return format::money(earnings(projectRate, now), "0,00 €");
}

std::string TimeEntry::formattedStart(const Calendar& calendar) const {
    return format::date(startTime, format::DateForm::shortWithTime, calendar);
}

std::string TimeEntry::formattedEnd(const Calendar& calendar) const {
    return endTime ? format::date(*endTime, format::DateForm::shortWithTime, calendar) : nothingToShow;
}

} // namespace brisklog
