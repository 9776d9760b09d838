#include "platform/frontmost/ApplicationCatalogue.h"

#include "platform/frontmost/ApplicationIcons.h"

#include <utility>

namespace brisklog {

DesktopApplication ApplicationCatalogue::describe(const WindowIdentity& window) {
    if (const auto* const entry = m_entries.find(window))
        return {.localizedName = entry->name, .bundleIdentifier = entry->id};
    if (window.windowClass.empty())
        return {};
    return {.localizedName = window.windowClass, .bundleIdentifier = window.windowClass};
}

std::optional<std::string> ApplicationCatalogue::iconPng(const DesktopApplication& application) {
    const auto* const entry = m_entries.withId(application.bundleIdentifier.value_or(""));
    return entry != nullptr ? brisklog::iconPng(entry->icon) : std::nullopt;
}

std::optional<DesktopApplication> FocusGaps::bridgeGap(std::optional<DesktopApplication> seen) {
    if (seen && *seen != DesktopApplication{}) {
        m_last = seen;
        return seen;
    }
    auto last = std::exchange(m_last, std::nullopt);
    return last ? std::move(last) : std::move(seen);
}

std::optional<DesktopApplication> DescribedWindow::answer(const std::optional<WindowIdentity>& window) {
    if (!window)
        return m_gaps.bridgeGap(std::nullopt);
    if (m_window != window) {
        m_application = m_catalogue.describe(*window);
        m_window = window;
    }
    return m_gaps.bridgeGap(m_application);
}

void DescribedWindow::forget() {
    m_window.reset();
    m_gaps.forget();
}

} // namespace brisklog
