#pragma once

#include "autotrack/AutoTrackingManager.h"
#include "autotrack/DailyUsageDetailView.h"
#include "foundation/Calendar.h"
#include "overview/DetailWindowManager.h"
#include "platform/Clock.h"

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace brisklog {

/// What a detail window shows.
struct DetailWindowContent {
    /// "App-Nutzung: 15.11.2026"
    std::string title;
    DailyUsageDetailView detail;
};

/// What the calendar depends on.
struct CalendarServices {
    AutoTrackingManager& autoTrackingManager;
    DetailWindowManager& detailWindows;
    const Clock& clock;
    /// Notifies regularly as time passes, so also of a new time zone.
    ObservableObject& tick;
    /// Shows the content in a new window, which notifies the delegate as long as that exists.
    std::function<std::shared_ptr<DetailWindowController>(const DetailWindowContent& content,
                                                          std::weak_ptr<DetailWindowDelegate> delegate)>
        showDetailWindow;
};

/// One day as the grid shows it.
struct CalendarCell {
    Date date;
    std::string dayOfMonth;
    bool isOfMonth = false;
    bool isToday = false;
    bool isSelected = false;
    bool hasData = false;
    /// "15. November 2026, mit Daten"
    std::string name;

    bool operator==(const CalendarCell&) const = default;
};

/// A month in six weeks, with the days that have recorded usage marked. Selecting a marked day deliberately
/// opens another window each time, without looking for one that is already open.
class CalendarView final : public ObservableObject {
public:
    static constexpr int rows = 6;
    static constexpr int columns = 7;

    explicit CalendarView(CalendarServices services);

    Published<std::optional<Date>> selectedDate{*this};
    /// Any moment in the month shown.
    Published<Date> currentMonth;

    [[nodiscard]] AutoTrackingManager& autoTrackingManager() const { return m_services.autoTrackingManager; }

    /// "November 2026"
    [[nodiscard]] std::string monthTitle() const;

    /// The column's abbreviated weekday.
    [[nodiscard]] std::string columnHeading(int column) const;

    /// A moment on the cell's day, always the same one for the same cell of a month. Absent where the time
    /// zone skipped the whole day.
    [[nodiscard]] std::optional<Date> getDate(int row, int column) const;

    /// The content of all cells, row by row; absent where there is no date.
    [[nodiscard]] std::vector<std::optional<CalendarCell>> cells() const;

    [[nodiscard]] bool hasDataForDate(Date date) const;

    /// Selects the day; opens a window with its details if it has data.
    void selectDate(Date date);

    void showPreviousMonth();
    void showNextMonth();

    /// 15.11.2026
    [[nodiscard]] std::string formatDate(Date date) const;

private:
    [[nodiscard]] std::optional<Date> dateAt(int row, int column, const Calendar& calendar) const;
    [[nodiscard]] CalendarCell cellOf(Date date, const Calendar& calendar) const;
    [[nodiscard]] const DailyAppUsage* usageOn(const Day& day) const;
    [[nodiscard]] bool isSelected(const Day& day) const;
    void openDetailWindow(const DailyAppUsage& usage, Date selected);

    CalendarServices m_services;
};

} // namespace brisklog
