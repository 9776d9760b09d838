#include "platform/qt/ApplicationCatalogue.h"

#include "platform/qt/ApplicationIcons.h"

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

std::optional<DesktopApplication> FocusGaps::bridged(std::optional<DesktopApplication> seen) {
    if (seen) {
        m_last = seen;
        return seen;
    }
    return std::exchange(m_last, std::nullopt);
}

} // namespace brisklog
