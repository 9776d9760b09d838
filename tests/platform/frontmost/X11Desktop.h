#pragma once

#include "platform/DesktopFixture.h"
#include "platform/x11/X11Connection.h"

namespace brisklog::test {

/// An X server of its own without a screen, on which a window manager and programs can be started.
/// Where no server can be started, the test is skipped.
class X11Desktop : public Desktop {
protected:
    void SetUp() override;
    void TearDown() override;

    void startWindowManager();
    void endWindowManager();

    /// Starts a program; it is ended with the desktop.
    void start(const QString& program, const QStringList& arguments = {});

    /// Brings the window of this class to the front; false when there is none.
    [[nodiscard]] static bool bringToFront(const QString& windowClass);

    /// Installs a desktop entry; `lines` follow the group's head.
    void install(const std::string& id, const std::string& lines);

private:
    QProcess m_server;
    QProcess m_windowManager;
    std::vector<std::unique_ptr<QProcess>> m_programs;
};

/// A window as a program might have it, over a connection of its own. It is gone with the value.
class TestWindow {
public:
    TestWindow();

    void setClass(const std::string& instance, const std::string& windowClass);
    void setNumbers(const char* property, xcb_atom_t type, const std::vector<std::uint32_t>& values);
    void setText(const char* property, const std::string& text);

    /// Maps it and asks the window manager to make it active, until it is.
    void show();

    /// Does so once, without waiting for it to happen.
    void askToBeActive();

    [[nodiscard]] xcb_window_t id() const { return m_window; }

    /// Whether the window manager calls it active.
    [[nodiscard]] bool isActive() const;

private:
    X11Connection m_server;
    xcb_window_t m_window = XCB_WINDOW_NONE;
};

} // namespace brisklog::test
