#include "app/AppDelegate.h"

#include <utility>

namespace brisklog {
namespace {

constexpr const char* appearanceKey = "AppleInterfaceStyle";
constexpr const char* darkAppearance = "Dark";

} // namespace

AppDelegate::AppDelegate(Parts parts) : m_parts(std::move(parts)) {}

void AppDelegate::applicationDidFinishLaunching() {
    m_popover = m_parts.makePopover();
    applyLaunchAppearance();
    m_popover->loadContent();
    m_statusItem = m_parts.makeStatusItem();
    m_statusItem->setDescription("Zeiterfassung");
    m_statusItem->setAction([this] { togglePopover(); });
}

/// Read once: later changes of the desktop's appearance deliberately take effect at the next launch.
void AppDelegate::applyLaunchAppearance() {
    if (m_parts.userDefaults.value(appearanceKey)) {
        const bool dark = textValue(m_parts.userDefaults, appearanceKey) == darkAppearance;
        m_popover->setAppearance(dark ? ColorScheme::dark : ColorScheme::light);
        return;
    }
    m_popover->setAppearance(ColorScheme::light);
    m_parts.systemAppearance.ask([this](ColorScheme appearance) { m_popover->setAppearance(appearance); });
}

void AppDelegate::togglePopover() {
    if (!m_popover || !m_statusItem)
        return;
    if (m_popover->isShown())
        m_popover->close();
    else
        m_popover->show(m_statusItem->anchor());
}

void AppDelegate::openPopover() {
    if (m_popover && m_statusItem)
        m_popover->show(m_statusItem->anchor());
}

} // namespace brisklog
