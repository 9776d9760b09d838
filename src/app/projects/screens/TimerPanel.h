#pragma once

#include "app/projects/ProjectView.h"
#include "ui/lists/Newcomer.h"

#include <QWidget>
#include <functional>

namespace brisklog {

class ElidedLabel;
class FigureLabel;
class SymbolButton;

/// One running or paused timer with its controls: task, running duration, pause or resume, stop.
class TimerPanel final : public QWidget {
public:
    struct Actions {
        std::function<void(const TimerRow&)> pauseOrResume;
        std::function<void(const Uuid&)> stop;
    };

    TimerPanel(const TimerRow& timer, const Actions& actions, QWidget* parent = nullptr);

    /// Repaints only what has changed: usually the duration, once a second.
    void setTimer(const TimerRow& timer);

    /// In tab order.
    [[nodiscard]] std::vector<QWidget*> tabStops() const;

    /// Lets its ground fade once: it has just come.
    void appear();

    [[nodiscard]] const TimerRow& timer() const { return m_timer; }

    [[nodiscard]] QSize sizeHint() const override;

protected:
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

private:
    void showName();
    void showState();

    TimerRow m_timer;
    Newcomer m_newcomer;
    ElidedLabel* m_name;
    FigureLabel* m_duration;
    SymbolButton* m_pauseButton;
    SymbolButton* m_stopButton;
};

} // namespace brisklog
