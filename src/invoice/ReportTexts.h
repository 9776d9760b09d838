#pragma once

#include "core/Project.h"

#include <optional>
#include <string>
#include <vector>

namespace brisklog {

class Calendar;
class UserProfile;

/// A moment as a report shows it: the date above the time of day. Both are empty where there is none.
struct ReportMoment {
    std::string day;
    std::string time;
};

/// The cells of one entry's row.
struct ReportRow {
    std::string taskName;
    ReportMoment start;
    ReportMoment end;
    std::string duration;
    /// Absent in a report without earnings.
    std::optional<std::string> earnings;
};

/// Every text of an entry report as it is printed, from top to bottom.
struct ReportTexts {
    /// "Bericht" and the project's name.
    std::string name;
    /// An encoded image.
    std::optional<std::string> logo;
    /// Groups of lines with a small gap between them, even where a group is empty.
    std::vector<std::vector<std::string>> senderGroups;
    std::string title;
    std::string creationDate;
    /// The line with the project's rate; absent in a report without earnings.
    std::optional<std::string> hourlyRate;
    std::vector<ReportRow> rows;
    std::vector<std::string> totals;
    std::vector<std::string> bankLines;
};

/// The report of all entries of the project, in the project's order. An entry without an end counts up to
/// `now`.
[[nodiscard]] ReportTexts reportTexts(const Project& project, const UserProfile& profile,
                                      const Calendar& calendar, Date now);

} // namespace brisklog
