#pragma once

#include "overview/CalendarView.h"
#include "ui/sheets/Screen.h"

#include <vector>

namespace brisklog {

class CalendarDayButton;
class Label;

/// The month calendar on a card. After its two chevrons the grid is a single tab stop: arrows move by days
/// and weeks, Page keys by months, Return chooses.
class CalendarScreen final : public Screen {
public:
    explicit CalendarScreen(const CalendarServices& services, QWidget* parent = nullptr);

protected:
    void refresh() override;
    void showEvent(QShowEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

private:
    [[nodiscard]] QWidget* headings();
    [[nodiscard]] QWidget* grid();
    /// The cell that is the tab stop while the grid does not have the focus.
    [[nodiscard]] int startingCell() const;
    [[nodiscard]] bool gridHasFocus() const;
    [[nodiscard]] bool hasDay(int cell) const;
    /// The cell of the day with that name; one past the last cell when it is not shown.
    [[nodiscard]] int cellNamed(const std::string& name) const;
    /// The cell of that day in the month shown, or else of the month's last day.
    [[nodiscard]] int cellOfDay(const std::string& dayOfMonth) const;
    void choose(int cell);
    bool handleKey(int key);
    void moveBy(int days);
    void moveByMonth(int months);
    void moveTo(int cell);
    /// Makes it the grid's tab stop.
    void setCurrentCell(int cell);

    CalendarView m_view;
    Label* m_title;
    std::vector<Label*> m_headings;
    std::vector<CalendarDayButton*> m_dayButtons;
    std::vector<std::optional<CalendarCell>> m_cells;
    int m_currentCell = 0;
};

} // namespace brisklog
