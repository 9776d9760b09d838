#pragma once

#include "app/projects/screens/TimerPanel.h"

#include <vector>

namespace brisklog {

/// The rows of a project's timers, with a gap below their heading. From the fourth timer on they scroll
/// within three and a half rows; without timers the list takes no room.
class TimerList final : public QWidget {
public:
    explicit TimerList(const TimerPanel::Actions& actions, QWidget* parent = nullptr);

    /// Returns whether rows were added or removed.
    bool setTimers(const std::vector<TimerRow>& timers);

    /// The rows' buttons in tab order.
    [[nodiscard]] std::vector<QWidget*> tabStops() const;

private:
    [[nodiscard]] bool showsTheSameTimers(const std::vector<TimerRow>& timers) const;
    void rebuild(const std::vector<TimerRow>& timers);
    [[nodiscard]] TimerPanel* takeRow(const TimerRow& timer);

    TimerPanel::Actions m_actions;
    QWidget* m_content;
    std::vector<TimerPanel*> m_rows;
};

} // namespace brisklog
