#pragma once

#include "app/projects/MultiProjectView.h"
#include "app/projects/TabStripLayout.h"
#include "app/projects/screens/ProjectTabButton.h"

#include <QStringList>
#include <QWidget>
#include <functional>
#include <vector>

namespace brisklog {

class SymbolButton;
class TabOverflowButton;

/// The row of tabs with the buttons that create a project and reset everything. Tabs that do not fit are
/// listed in a menu; the wheel and the arrow keys step through them.
class ProjectTabStrip final : public QWidget {
public:
    struct Actions {
        std::function<void(int tab)> select;
        std::function<void(int steps)> step;
        std::function<void()> createProject;
        std::function<void()> resetAllData;
    };

    explicit ProjectTabStrip(const Actions& actions, QWidget* parent = nullptr);

    /// What the strip shows; `currentProject` is kept in view while "Auto-Tracking" is selected.
    struct Content {
        std::vector<ProjectTab> tabs;
        int selectedTab = 0;
        int currentProject = 0;

        bool operator==(const Content&) const = default;
    };

    void setContent(const Content& content);

    /// For screen readers, unless they say it by themselves because the focus has moved to that tab.
    void announceSelectedTab();

    [[nodiscard]] QSize sizeHint() const override { return {0, 34}; }

protected:
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;

private:
    [[nodiscard]] bool isAutoTrackingSelected() const;
    [[nodiscard]] bool isTabFocused() const;
    void addTabButton();
    void measure();
    void place();
    void placeTabs();
    void placeTab(std::size_t slot, const TabPlacement& placement);
    static void takeTabAway(ProjectTabButton& button);
    void selectAutoTracking();
    void openMenu();
    void focusSelectedTab();

    Actions m_actions;
    Content m_content;
    QStringList m_names;
    std::vector<int> m_widths;
    TabStripLayout m_layout;
    /// Holds the tabs alone: a list of tabs for screen readers.
    QWidget* m_tabArea;
    /// At least as many as are shown; reused for other projects as the selection changes.
    std::vector<ProjectTabButton*> m_tabButtons;
    TabOverflowButton* m_overflowButton;
    ProjectTabButton* m_autoTrackingButton;
    SymbolButton* m_newProjectButton;
    SymbolButton* m_resetButton;
    int m_wheelTravel = 0;
};

} // namespace brisklog
