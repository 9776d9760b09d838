#pragma once

#include "platform/frontmost/FrontmostWindow.h"
#include "platform/frontmost/X11ActiveWindow.h"
#include "platform/frontmost/X11WindowManager.h"

namespace brisklog {

/// The window in front under X11: the one that the window manager reports as active. Not for Wayland, where
/// the X server does not know most windows.
class X11FrontmostWindow final : public FrontmostWindow {
public:
    [[nodiscard]] Availability availability() const override;
    void beginWatching() override;
    void endWatching() override;
    [[nodiscard]] const InFront& inFront() override;
    [[nodiscard]] InFront behind(const OwnWindows& own) override;
    [[nodiscard]] std::optional<std::string> windowIcon() override;

private:
    X11WindowManager m_manager{[this] { announce(); }};
    /// Present only while watching.
    std::optional<X11ActiveWindow> m_activeWindow;
    /// The frontmost window when last asked, and what it shows.
    X11WindowFacts m_facts;
    InFront m_seen;
    /// The answer while the server does not answer.
    const InFront m_unknown;
};

} // namespace brisklog
