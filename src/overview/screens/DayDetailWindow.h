#pragma once

#include "overview/CalendarView.h"

#include <QPointer>
#include <QWidget>
#include <vector>

namespace brisklog {

class Images;

/// A day's details in a window with the window manager's frame. It has no parent window and destroys itself
/// when it closes.
class DayDetailWindow final : public QWidget {
public:
    DayDetailWindow(const DetailWindowContent& content, const Images& images,
                    std::weak_ptr<DetailWindowDelegate> delegate);

protected:
    void closeEvent(QCloseEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

private:
    std::weak_ptr<DetailWindowDelegate> m_delegate;
};

/// Opens the detail windows, and destroys those still open when it is destroyed.
class DayDetailWindows {
public:
    /// Windows open in the middle of the screen that `nearby` is on.
    DayDetailWindows(const Images& images, std::function<const QWidget*()> nearby)
        : m_images(images), m_nearby(std::move(nearby)) {}

    ~DayDetailWindows();
    DayDetailWindows(const DayDetailWindows&) = delete;
    DayDetailWindows& operator=(const DayDetailWindows&) = delete;

    [[nodiscard]] std::shared_ptr<DetailWindowController> show(const DetailWindowContent& content,
                                                               std::weak_ptr<DetailWindowDelegate> delegate);

private:
    const Images& m_images;
    std::function<const QWidget*()> m_nearby;
    std::vector<QPointer<DayDetailWindow>> m_windows;
};

} // namespace brisklog
