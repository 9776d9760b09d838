#pragma once

#include "platform/FrontmostApplication.h"
#include "platform/linux/DesktopEntries.h"

namespace brisklog {

/// Turns what a desktop tells about a window into the application people know.
class ApplicationCatalogue {
public:
    /// By the desktop entry; without one, the class of the window is name and identifier.
    [[nodiscard]] DesktopApplication describe(const WindowIdentity& window);

    /// The icon of the application's desktop entry as PNG; absent when it has none.
    [[nodiscard]] std::optional<std::string> iconPng(const DesktopApplication& application);

private:
    DesktopEntries m_entries;
};

/// Keeps the application while the focus wanders from one window to the next.
class FocusGaps {
public:
    /// What to answer when `seen` has the focus now. Asked once a second, a first "none" is a gap of less
    /// than that; the second in a row is believed.
    [[nodiscard]] std::optional<DesktopApplication> bridged(std::optional<DesktopApplication> seen);

    /// The next "none" is believed at once.
    void forget() { m_last.reset(); }

private:
    std::optional<DesktopApplication> m_last;
};

} // namespace brisklog
