#pragma once

#include "overview/DashboardView.h"
#include "ui/sheets/Screen.h"

#include <vector>

namespace brisklog {

class ActiveTimerPanel;
class BarChart;
class Label;
class LayoutBox;
class ProjectOverviewPanel;
class RoleLabel;
template <class Panel>
class PanelColumn;

/// The dashboard's screen: four cards in one scroll area.
class DashboardScreen final : public Screen {
public:
    explicit DashboardScreen(const DashboardServices& services, QWidget* parent = nullptr);

protected:
    void refresh() override;
    void showEvent(QShowEvent* event) override;
    void hideEvent(QHideEvent* event) override;

private:
    using Text = std::string DashboardContent::*;

    struct ShownText {
        Text text;
        RoleLabel* label;
    };

    struct SumLook;

    [[nodiscard]] QWidget* dailyOverview();
    [[nodiscard]] QWidget* weeklyOverview();
    [[nodiscard]] QWidget* runningTimers();
    [[nodiscard]] QWidget* finance();

    /// A caption with its figure at the right.
    [[nodiscard]] LayoutBox sum(const QString& caption, Text figure, const SumLook& look);
    /// One of the large figures at the top.
    [[nodiscard]] QWidget* largeSum(const QString& caption, Text figure);
    /// Returns the label, which shows that text from now on.
    template <class AnyLabel>
    AnyLabel* showing(Text text, AnyLabel* label);

    DashboardView m_view;
    std::vector<ShownText> m_texts;
    PanelColumn<ProjectOverviewPanel>* m_projects;
    BarChart* m_week;
    Label* m_noTimers;
    PanelColumn<ActiveTimerPanel>* m_timers;
    BarChart* m_revenue;
};

} // namespace brisklog
