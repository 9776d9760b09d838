#pragma once

#include "platform/FrontmostApplication.h"
#include "platform/frontmost/DesktopEntries.h"

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
    /// than that; the second in a row is believed. So is a window without any name: some are on show only
    /// while others change places, and some get their name late.
    [[nodiscard]] std::optional<DesktopApplication> bridged(std::optional<DesktopApplication> seen);

    /// The next "none" is believed at once.
    void forget() { m_last.reset(); }

private:
    std::optional<DesktopApplication> m_last;
};

/// Answers who is in front from what a desktop has told by itself; a window is looked up once.
class DescribedWindow {
public:
    /// `window` is in front now, absent when none is.
    [[nodiscard]] std::optional<DesktopApplication> answer(const std::optional<WindowIdentity>& window);

    [[nodiscard]] std::optional<std::string> iconPng(const DesktopApplication& application) {
        return m_catalogue.iconPng(application);
    }

    /// What was in front before counts no more.
    void forget();

private:
    ApplicationCatalogue m_catalogue;
    std::optional<WindowIdentity> m_window;
    DesktopApplication m_application;
    FocusGaps m_gaps;
};

} // namespace brisklog
