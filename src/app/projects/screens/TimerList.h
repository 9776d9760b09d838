#pragma once

#include "app/projects/screens/TimerPanel.h"

#include <optional>
#include <vector>

namespace brisklog {

/// The rows of a project's timers, with a gap below their heading. From the fourth timer on they scroll
/// within three and a half rows; without timers the list takes no room. A timer that has just been started
/// comes into view, and its ground fades once.
class TimerList final : public QWidget {
public:
    explicit TimerList(const TimerPanel::Actions& actions, QWidget* parent = nullptr);

    /// Shows the project's timers; returns whether rows were added or removed.
    bool setTimers(const Uuid& projectId, const std::vector<TimerRow>& timers);

    /// Whether one of the timer's buttons has the focus.
    [[nodiscard]] bool hasFocusInRow(const Uuid& entryId) const;

    /// The rows' buttons in tab order.
    [[nodiscard]] std::vector<QWidget*> tabStops() const;

private:
    [[nodiscard]] bool showsTheSameTimers(const std::vector<TimerRow>& timers) const;
    void rebuild(const std::vector<TimerRow>& timers);
    [[nodiscard]] TimerPanel* takeRow(const TimerRow& timer);
    void showNewRow(TimerPanel& row);

    TimerPanel::Actions m_actions;
    QWidget* m_content;
    std::vector<TimerPanel*> m_rows;
    /// The project of those rows.
    std::optional<Uuid> m_projectId;
};

} // namespace brisklog
