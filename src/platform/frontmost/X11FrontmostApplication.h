#pragma once

#include "platform/frontmost/ApplicationCatalogue.h"
#include "platform/frontmost/X11ActiveWindow.h"
#include "platform/frontmost/X11WindowManager.h"

namespace brisklog {

/// The frontmost application under X11: the window the window manager calls active. Not for Wayland, where
/// the X server knows nothing of most windows.
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
    /// While watching.
    std::optional<X11ActiveWindow> m_activeWindow;
    /// What was in front when last asked.
    X11WindowFacts m_facts;
    DesktopApplication m_application;
    FocusGaps m_gaps;
};

} // namespace brisklog
