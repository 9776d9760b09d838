#pragma once

#include <cstdint>
#include <functional>
#include <memory>

struct xcb_connection_t;
class QSocketNotifier;

namespace brisklog {

/// What the toolkit does not tell about the X server: button presses outside our own windows, and the arrival
/// of an XEmbed tray. It listens on a connection of its own and grabs nothing.
class X11Watcher {
public:
    struct Handlers {
        /// A button went down anywhere on the screen.
        std::function<void()> pointerPressed;
        /// A tray has taken the tray selection.
        std::function<void()> trayAppeared;
    };

    explicit X11Watcher(Handlers handlers);
    ~X11Watcher();
    X11Watcher(const X11Watcher&) = delete;
    X11Watcher& operator=(const X11Watcher&) = delete;

    /// Whether an XEmbed tray is there now.
    [[nodiscard]] bool hasTray() const;

    /// Asks for button presses or stops asking; off at first, because every press would wake the program.
    void watchPointer(bool enabled);

    /// Keeps a window out of task bar and pager; to be called before each show.
    void keepOutOfTaskBar(std::uint32_t window);

private:
    void connectToServer();
    void handleEvents();
    [[nodiscard]] std::uint32_t atom(const char* name) const;

    Handlers m_handlers;
    xcb_connection_t* m_connection;
    std::uint32_t m_root = 0;
    std::uint32_t m_traySelection = 0;
    std::uint32_t m_managerMessage = 0;
    std::uint8_t m_inputExtension = 0;
    std::unique_ptr<QSocketNotifier> m_notifier;
};

} // namespace brisklog
