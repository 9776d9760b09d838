#pragma once

#include "autotrack/AutoTrackingView.h"
#include "ui/sheets/Screen.h"

namespace brisklog {

class ElidedLabel;
class Label;
class Switch;

/// Filled green while tracking, otherwise hollow.
class TrackingDot final : public QWidget {
public:
    explicit TrackingDot(QWidget* parent = nullptr);

    void setOn(bool isOn);

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    bool m_isOn = false;
};

/// The automatic tracking panel: its switch, what is being recorded, the calendar, and a way to delete it
/// all.
class AutoTrackingScreen final : public Screen {
public:
    /// Becomes the calendar's parent.
    AutoTrackingScreen(AutoTrackingManager& manager, FrontmostApplication& frontmost, QWidget* calendar,
                       QWidget* parent = nullptr);

protected:
    void refresh() override;

private:
    [[nodiscard]] QWidget* statusLines();
    void confirmClearing();

    AutoTrackingView m_view;
    Switch* m_switch;
    TrackingDot* m_dot;
    Label* m_status;
    ElidedLabel* m_current;
    Label* m_unavailability;
};

} // namespace brisklog
