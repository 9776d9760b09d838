#pragma once

#include "platform/x11/X11Connection.h"

#include <optional>

namespace brisklog {

/// What the properties of a window say about its program, unprocessed.
struct X11WindowFacts {
    /// Those by which a change is noticed.
    struct Names {
        std::vector<std::uint8_t> windowClass;
        std::vector<std::uint8_t> applicationId;
        std::vector<std::uint32_t> process;

        bool operator==(const Names&) const = default;
    };

    xcb_window_t window = XCB_WINDOW_NONE;
    Names names;
    /// The machine that the process runs on.
    std::vector<std::uint8_t> machine;
    /// Whether it is the desktop's own window.
    bool isDesktop = false;

    bool operator==(const X11WindowFacts&) const = default;
};

/// Finds the window that has the focus by asking the X server each time, without listening to events. The
/// last window's names are requested together with the active window, so an unchanged answer takes one round
/// trip, and a window id reused by another program is noticed.
class X11ActiveWindow {
public:
    /// Looks which window is active. False when the server does not answer within a moment; its answer is
    /// then read at the next look.
    [[nodiscard]] bool look();

    /// What the last look that was answered has found; null when no window is active, or when it vanished
    /// meanwhile.
    [[nodiscard]] const X11WindowFacts* active() const { return m_active ? &*m_active : nullptr; }

    /// The windows in use on the desktop shown, the uppermost first: neither minimized nor kept out of the
    /// task bar, nor panels.
    [[nodiscard]] std::vector<X11WindowFacts> stack() const;

    /// A window's icons as it sets them: width, height, colours (0xAARRGGBB) row by row, then the next icon;
    /// empty when it has none.
    [[nodiscard]] std::vector<std::uint32_t> icons(xcb_window_t window) const;

private:
    struct Questions {
        xcb_get_property_cookie_t windowClass;
        xcb_get_property_cookie_t applicationId;
        xcb_get_property_cookie_t process;
    };

    /// A look that may not be answered yet.
    struct Look {
        xcb_window_t asked;
        Questions questions;
        xcb_get_property_cookie_t active;
    };

    enum class Outcome { unanswered, another, settled };

    [[nodiscard]] Outcome lookAt(xcb_window_t window);
    [[nodiscard]] Questions askAbout(xcb_window_t window) const;
    [[nodiscard]] std::optional<X11WindowFacts::Names> answer(const Questions& questions) const;
    [[nodiscard]] std::optional<X11WindowFacts> factsOf(xcb_window_t window,
                                                        std::optional<X11WindowFacts::Names> names) const;
    [[nodiscard]] std::vector<std::uint32_t> numbersOf(xcb_window_t window, xcb_atom_t property) const;
    [[nodiscard]] bool isInUse(xcb_window_t window, std::uint32_t shownDesktop) const;

    X11Connection m_server;
    xcb_atom_t m_activeWindow = m_server.atom("_NET_ACTIVE_WINDOW");
    xcb_atom_t m_stacking = m_server.atom("_NET_CLIENT_LIST_STACKING");
    xcb_atom_t m_shownDesktop = m_server.atom("_NET_CURRENT_DESKTOP");
    xcb_atom_t m_desktop = m_server.atom("_NET_WM_DESKTOP");
    xcb_atom_t m_state = m_server.atom("_NET_WM_STATE");
    xcb_atom_t m_hidden = m_server.atom("_NET_WM_STATE_HIDDEN");
    xcb_atom_t m_skipTaskbar = m_server.atom("_NET_WM_STATE_SKIP_TASKBAR");
    xcb_atom_t m_type = m_server.atom("_NET_WM_WINDOW_TYPE");
    xcb_atom_t m_dockType = m_server.atom("_NET_WM_WINDOW_TYPE_DOCK");
    xcb_atom_t m_desktopType = m_server.atom("_NET_WM_WINDOW_TYPE_DESKTOP");
    xcb_atom_t m_applicationId = m_server.atom("_GTK_APPLICATION_ID");
    xcb_atom_t m_process = m_server.atom("_NET_WM_PID");
    xcb_atom_t m_icon = m_server.atom("_NET_WM_ICON");
    /// The window expected to be active.
    xcb_window_t m_expected = XCB_WINDOW_NONE;
    std::optional<Look> m_pending;
    std::optional<X11WindowFacts> m_active;
};

} // namespace brisklog
