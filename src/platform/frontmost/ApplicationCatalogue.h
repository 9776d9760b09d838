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

} // namespace brisklog
