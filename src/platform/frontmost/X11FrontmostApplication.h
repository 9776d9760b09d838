#pragma once

#include "platform/frontmost/ApplicationCatalogue.h"
#include "platform/frontmost/X11WindowManager.h"
#include "platform/x11/X11Connection.h"

namespace brisklog {

/// What the properties of a window say about its program, unprocessed.
struct X11WindowFacts {
    xcb_window_t window = XCB_WINDOW_NONE;
    std::vector<std::uint8_t> windowClass;
    std::vector<std::uint8_t> applicationId;
    std::vector<std::uint32_t> process;

    bool operator==(const X11WindowFacts&) const = default;
};

/// Finds the window that has the focus by asking the X server each time, without listening to events. The
/// last window's properties are requested together with the active window, so an unchanged answer takes one
/// round trip, and a window id reused by another program is noticed.
class X11ActiveWindow {
public:
    /// Absent when no window is active, or when it vanished meanwhile.
    [[nodiscard]] std::optional<X11WindowFacts> ask();

    /// A window's icons as it sets them: width, height, colours (0xAARRGGBB) row by row, then the next icon;
    /// empty when it has none.
    [[nodiscard]] std::vector<std::uint32_t> icons(xcb_window_t window) const;

private:
    struct Questions {
        xcb_get_property_cookie_t windowClass;
        xcb_get_property_cookie_t applicationId;
        xcb_get_property_cookie_t process;
    };

    [[nodiscard]] Questions askAbout(xcb_window_t window) const;
    [[nodiscard]] std::optional<X11WindowFacts> answer(xcb_window_t window, const Questions& questions) const;

    X11Connection m_server;
    xcb_atom_t m_activeWindow = m_server.atom("_NET_ACTIVE_WINDOW");
    xcb_atom_t m_applicationId = m_server.atom("_GTK_APPLICATION_ID");
    xcb_atom_t m_process = m_server.atom("_NET_WM_PID");
    xcb_atom_t m_icon = m_server.atom("_NET_WM_ICON");
    xcb_window_t m_last = XCB_WINDOW_NONE;
};

/// The frontmost application under X11: the window that the window manager reports as active. Not for
/// Wayland, where the X server does not know most windows.
class X11FrontmostApplication final : public FrontmostApplication {
public:
    [[nodiscard]] Availability availability() const override;
    void beginWatching() override;
    void endWatching() override;
    [[nodiscard]] std::optional<DesktopApplication> current() override;
    [[nodiscard]] std::optional<std::string> iconPng(const DesktopApplication& application) override;

private:
    [[nodiscard]] std::optional<DesktopApplication> inFront();

    X11WindowManager m_manager{[this] { announce(); }};
    ApplicationCatalogue m_catalogue;
    /// Present only while watching.
    std::optional<X11ActiveWindow> m_activeWindow;
    /// The frontmost window when last asked.
    X11WindowFacts m_facts;
    DesktopApplication m_application;
    FocusGaps m_gaps;
};

} // namespace brisklog
