#pragma once

#include "overview/DashboardView.h"

#include <QWidget>

namespace brisklog {

class ElidedLabel;
class FigureLabel;
class Label;

/// One running or paused timer on the dashboard; display only.
class ActiveTimerPanel final : public QWidget {
public:
    explicit ActiveTimerPanel(QWidget* parent);

    void setRow(const ActiveTimerRow& timer);

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    void showName();

    bool m_isPaused = false;
    ElidedLabel* m_project;
    ElidedLabel* m_task;
    Label* m_started;
    FigureLabel* m_duration;
    QWidget* m_paused;
};

} // namespace brisklog
