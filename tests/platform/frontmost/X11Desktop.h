#pragma once

#include "platform/DesktopFixture.h"
#include "platform/x11/X11Connection.h"

namespace brisklog::test {

/// A private X server without a screen, on which a window manager and programs can be started. Where no
/// server can be started, the test is skipped.
class X11Desktop : public Desktop {
protected:
    void SetUp() override;
    void TearDown() override;

    void startWindowManager();
    void endWindowManager();

    /// Starts a program; it ends with the desktop.
    void start(const QString& program, const QStringList& arguments = {});

    /// Brings the window of this class to the front; false when there is none.
    [[nodiscard]] static bool bringToFront(const QString& windowClass);

    /// Installs a desktop entry; `lines` follow the group header.
    void install(const std::string& id, const std::string& lines);

private:
    QProcess m_server;
    QProcess m_windowManager;
    std::vector<std::unique_ptr<QProcess>> m_programs;
};

/// A window as a program might have it, over its own connection. It is destroyed with this object.
class TestWindow {
public:
    TestWindow();

    void setClass(const std::string& instance, const std::string& windowClass);
    void setMachine(const std::string& name);
    void setNumbers(const char* property, xcb_atom_t type, const std::vector<std::uint32_t>& values);
    void setText(const char* property, const std::string& text);
    void setAtoms(const char* property, const std::vector<const char*>& names);

    /// Maps the window and asks the window manager to activate it, until it is active.
    void show();

    /// Maps it and asks once, without waiting.
    void askToBeActive();

    [[nodiscard]] xcb_window_t id() const { return m_window; }

    /// Whether the window manager reports it as active.
    [[nodiscard]] bool isActive() const;

private:
    X11Connection m_server;
    xcb_window_t m_window = XCB_WINDOW_NONE;
};

} // namespace brisklog::test
