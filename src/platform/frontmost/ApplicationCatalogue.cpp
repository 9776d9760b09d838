#include "platform/frontmost/ApplicationCatalogue.h"

#include "platform/frontmost/ApplicationIcons.h"

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

} // namespace brisklog
