#include "platform/frontmost/X11FrontmostApplication.h"

#include "platform/frontmost/ApplicationIcons.h"

namespace brisklog {

FrontmostApplication::Availability X11FrontmostApplication::availability() const {
    return m_manager.tellsActiveWindow() ? Availability::available : Availability::unavailable;
}

void X11FrontmostApplication::beginWatching() {
    if (!m_activeWindow)
        m_activeWindow.emplace();
}

void X11FrontmostApplication::endWatching() {
    m_activeWindow.reset();
    m_facts = {};
    m_gaps.forget();
}

std::optional<DesktopApplication> X11FrontmostApplication::current() {
    if (!m_activeWindow)
        return std::nullopt;
    return m_gaps.bridged(inFront());
}

std::optional<DesktopApplication> X11FrontmostApplication::inFront() {
    // A manager that has ended leaves the last active window's number behind.
    auto facts = m_manager.tellsActiveWindow() ? m_activeWindow->ask() : std::nullopt;
    if (!facts)
        return std::nullopt;
    if (*facts != m_facts) {
        m_application = m_catalogue.describe(identityOf(*facts));
        m_facts = std::move(*facts);
    }
    return m_application;
}

std::optional<std::string> X11FrontmostApplication::iconPng(const DesktopApplication& application) {
    if (auto icon = m_catalogue.iconPng(application))
        return icon;
    const bool isKnown = m_activeWindow && application == m_application && m_facts.window != XCB_WINDOW_NONE;
    return isKnown ? brisklog::iconPng(m_activeWindow->icons(m_facts.window)) : std::nullopt;
}

} // namespace brisklog
