#pragma once

#include "app/projects/screens/TimerPanel.h"

#include <vector>

namespace brisklog {

/// The rows of a project's timers, with the space that parts them from their heading. From the fourth timer
/// on they scroll within three and a half rows; without any it takes no room.
class TimerList final : public QWidget {
public:
    explicit TimerList(const TimerPanel::Actions& actions, QWidget* parent = nullptr);

    /// Whether rows came or went.
    bool setTimers(const std::vector<TimerRow>& timers);

    /// The rows' buttons in the order in which Tab reaches them.
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
