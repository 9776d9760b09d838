#pragma once

#include "platform/x11/X11Connection.h"

#include <functional>

class QSocketNotifier;

namespace brisklog {

/// Detects a window manager that reports the active window. It wakes the program when one starts or ends, and
/// for nothing else while there is one.
class X11WindowManager {
public:
    /// `changed` is called on the main thread whenever the answer has changed.
    explicit X11WindowManager(std::function<void()> changed);
    ~X11WindowManager();
    X11WindowManager(const X11WindowManager&) = delete;
    X11WindowManager& operator=(const X11WindowManager&) = delete;

    [[nodiscard]] bool tellsActiveWindow() const { return m_manager != XCB_WINDOW_NONE; }

private:
    void handleEvents();
    void look();
    [[nodiscard]] xcb_window_t findManager() const;
    [[nodiscard]] xcb_window_t checkWindowOf(xcb_window_t window) const;
    [[nodiscard]] bool isSupported(xcb_atom_t atom) const;
    void select(xcb_window_t window, std::uint32_t events) const;

    std::function<void()> m_changed;
    X11Connection m_server;
    xcb_atom_t m_check = m_server.atom("_NET_SUPPORTING_WM_CHECK");
    xcb_atom_t m_supported = m_server.atom("_NET_SUPPORTED");
    xcb_atom_t m_activeWindow = m_server.atom("_NET_ACTIVE_WINDOW");
    /// The window whose existence shows that a manager is running.
    xcb_window_t m_manager = XCB_WINDOW_NONE;
    std::unique_ptr<QSocketNotifier> m_notifier;
};

} // namespace brisklog
