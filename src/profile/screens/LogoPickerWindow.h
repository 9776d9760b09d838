#pragma once

#include "profile/LogoPickerPresenter.h"
#include "profile/screens/LogoPickerScreen.h"

#include <QPointer>
#include <memory>

namespace brisklog {

/// The logo picker in a window with the window manager's frame. Escape closes it.
class LogoPickerWindow final : public QWidget {
public:
    LogoPickerWindow(const QString& title, LogoPickerScreen* screen, QWidget* parent);

    /// Runs once after the window has closed, for whatever reason, unless its parent is destroyed too.
    void onClosed(std::function<void()> closed) { m_closed = std::move(closed); }

protected:
    void keyPressEvent(QKeyEvent* event) override;
    void closeEvent(QCloseEvent* event) override;

private:
    std::function<void()> m_closed;
};

/// Opens and closes the logo picker's window over the popover, which stays open meanwhile.
class LogoPickerWindowController final : public LogoPickerPresenter {
public:
    struct Services {
        LogoPickerPlatform picker;
        /// Makes the thumbnails.
        Background& pictures;
        /// The window the picker belongs to.
        std::function<QWidget*()> parentWindow;
    };

    explicit LogoPickerWindowController(Services services) : m_services(std::move(services)) {}

    ~LogoPickerWindowController() override;
    LogoPickerWindowController(const LogoPickerWindowController&) = delete;
    LogoPickerWindowController& operator=(const LogoPickerWindowController&) = delete;

    void present(const std::string& title, Completion completed) override;
    void close() override;

private:
    Services m_services;
    QPointer<LogoPickerWindow> m_window;
};

} // namespace brisklog
