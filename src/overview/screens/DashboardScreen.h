#pragma once

#include "overview/DashboardView.h"
#include "overview/screens/RowColumn.h"
#include "ui/sheets/Screen.h"

namespace brisklog {

class ActiveTimerPanel;
class BarChart;
class FigureLabel;
class Label;
class ProjectOverviewRowView;

/// The dashboard as it is seen: four cards in one scroll area.
class DashboardScreen final : public Screen {
public:
    explicit DashboardScreen(const DashboardPlatform& platform, QWidget* parent = nullptr);

protected:
    void refresh() override;
    void showEvent(QShowEvent* event) override;
    void hideEvent(QHideEvent* event) override;

private:
    [[nodiscard]] QWidget* dailyOverview();
    [[nodiscard]] QWidget* weeklyOverview();
    [[nodiscard]] QWidget* runningTimers();
    [[nodiscard]] QWidget* finance();

    DashboardView m_view;
    Label* m_currentDate;
    FigureLabel* m_todaysWork;
    FigureLabel* m_totalWork;
    RowColumn<ProjectOverviewRowView>* m_projects;
    FigureLabel* m_totalEarnings;
    BarChart* m_week;
    FigureLabel* m_weeklyTotal;
    FigureLabel* m_averagePerDay;
    Label* m_noTimers;
    RowColumn<ActiveTimerPanel>* m_timers;
    BarChart* m_revenue;
    FigureLabel* m_currentMonth;
    FigureLabel* m_total;
};

} // namespace brisklog
