#pragma once

#include "overview/CalendarView.h"
#include "ui/controls/Clickable.h"

#include <functional>
#include <optional>

namespace brisklog {

/// One day of the calendar, 44 × 44.
class CalendarDayButton final : public Clickable {
public:
    explicit CalendarDayButton(QWidget* parent = nullptr);

    /// Without a cell it shows nothing and cannot be chosen.
    void setCell(const std::optional<CalendarCell>& cell);

    /// Receives keys, to move through the calendar; returns whether it handled the key.
    void onKey(std::function<bool(int key)> handle) { m_handleKey = std::move(handle); }

    [[nodiscard]] std::optional<bool> isChosen() const override;

    [[nodiscard]] QSize sizeHint() const override { return {44, 44}; }

    [[nodiscard]] QSize minimumSizeHint() const override { return sizeHint(); }

protected:
    void paintEvent(QPaintEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

private:
    std::optional<CalendarCell> m_cell;
    std::function<bool(int key)> m_handleKey;
};

} // namespace brisklog
