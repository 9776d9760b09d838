#pragma once

#include "platform/FrontmostApplication.h"
#include "platform/frontmost/DesktopEntries.h"

namespace brisklog {

/// Finds the application behind a window from what the desktop reports about the window.
class ApplicationCatalogue {
public:
    /// Uses the desktop entry; without one, the window's class serves as name and identifier.
    [[nodiscard]] DesktopApplication describe(const WindowIdentity& window);

    /// The icon of the application's desktop entry as PNG; absent when it has none.
    [[nodiscard]] std::optional<std::string> iconPng(const DesktopApplication& application);

private:
    DesktopEntries m_entries;
};

/// Bridges the moments in which the focus moves from one window to the next.
class FocusGaps {
public:
    /// What to report when `seen` has the focus now. When called once a second, the first "none" is taken for
    /// a short gap; the second in a row is believed. The same applies to a window without any name: some
    /// appear only while windows are being switched, and some get their name late.
    [[nodiscard]] std::optional<DesktopApplication> bridgeGap(std::optional<DesktopApplication> seen);

    /// After this, the next "none" is believed at once.
    void forget() { m_last.reset(); }

private:
    std::optional<DesktopApplication> m_last;
};

/// Determines the frontmost application from the window last reported by the desktop, which is looked up only
/// once.
class DescribedWindow {
public:
    /// `window` is the frontmost one now, absent when there is none.
    [[nodiscard]] std::optional<DesktopApplication> answer(const std::optional<WindowIdentity>& window);

    [[nodiscard]] std::optional<std::string> iconPng(const DesktopApplication& application) {
        return m_catalogue.iconPng(application);
    }

    /// Drops what was frontmost before.
    void forget();

private:
    ApplicationCatalogue m_catalogue;
    std::optional<WindowIdentity> m_window;
    DesktopApplication m_application;
    FocusGaps m_gaps;
};

} // namespace brisklog
