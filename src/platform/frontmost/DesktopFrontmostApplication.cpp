#include "platform/frontmost/DesktopFrontmostApplication.h"

#include "platform/frontmost/ApplicationIcons.h"

#include <utility>

namespace brisklog {
namespace {

const DesktopApplication bareDesktop{.localizedName = "Schreibtisch", .bundleIdentifier = "desktop"};

const DesktopApplication lockedScreen{.localizedName = "Bildschirmsperre", .bundleIdentifier = "lock"};

// Their names in icon themes.
constexpr const char* bareDesktopIcon = "user-desktop";
constexpr const char* lockedScreenIcon = "system-lock-screen";

} // namespace

DesktopFrontmostApplication::DesktopFrontmostApplication(std::unique_ptr<FrontmostWindow> window,
                                                         std::unique_ptr<UserPresence> presence,
                                                         OwnWindows own)
    : m_window(std::move(window)), m_presence(std::move(presence)), m_own(std::move(own)),
      m_subscription(m_window->observe([this] { announce(); })) {}

FrontmostApplication::Availability DesktopFrontmostApplication::availability() const {
    return m_presence->isAway() && m_wasAvailable ? Availability::available : m_window->availability();
}

void DesktopFrontmostApplication::beginWatching() {
    m_presence->beginWatching();
    m_window->beginWatching();
}

void DesktopFrontmostApplication::endWatching() {
    m_presence->endWatching();
    m_window->endWatching();
    m_described.reset();
    m_last.reset();
    m_gap.reset();
    m_wasAvailable = false;
}

std::optional<DesktopApplication> DesktopFrontmostApplication::current() {
    if (m_presence->isAway()) {
        m_presence->confirm();
        return m_wasAvailable ? std::optional(lockedScreen) : std::nullopt;
    }
    m_wasAvailable = m_window->availability() == Availability::available;
    return answer(m_window->inFront());
}

std::optional<DesktopApplication> DesktopFrontmostApplication::answer(const InFront& seen) {
    switch (seen.kind) {
    case InFront::Kind::unknown:
        return std::nullopt;
    case InFront::Kind::nothing:
        return answerInGap(bareDesktop);
    case InFront::Kind::desktop:
        return answerAtOnce(bareDesktop);
    case InFront::Kind::window:
        return answerFor(seen.window);
    }
    return std::nullopt;
}

std::optional<DesktopApplication> DesktopFrontmostApplication::answerFor(const WindowIdentity& window) {
    if (m_own.contain(window))
        return answerBefore();
    const DesktopApplication& application = describe(window);
    return application == DesktopApplication{} ? answerInGap(application) : answerAtOnce(application);
}

/// The application before this program's own windows.
std::optional<DesktopApplication> DesktopFrontmostApplication::answerBefore() {
    m_gap.reset();
    if (m_last)
        return m_last;
    const InFront behind = m_window->behind(m_own);
    if (behind.kind == InFront::Kind::unknown)
        return std::nullopt;
    return m_last = behind.kind == InFront::Kind::window ? describe(behind.window) : bareDesktop;
}

/// Called once a second, the first look at a gap is answered with what was before it; the second in a row is
/// believed. Windows without a name are treated like none: some appear only while windows are being switched,
/// and some get their name late.
std::optional<DesktopApplication>
DesktopFrontmostApplication::answerInGap(const DesktopApplication& afterIt) {
    if (m_gap == afterIt)
        m_last = afterIt;
    m_gap = afterIt;
    return m_last;
}

std::optional<DesktopApplication>
DesktopFrontmostApplication::answerAtOnce(const DesktopApplication& application) {
    m_gap.reset();
    return m_last = application;
}

const DesktopApplication& DesktopFrontmostApplication::describe(const WindowIdentity& window) {
    if (m_described != window) {
        m_application = m_catalogue.describe(window);
        m_described = window;
    }
    return m_application;
}

std::optional<std::string> DesktopFrontmostApplication::iconPng(const DesktopApplication& application) {
    if (application == bareDesktop)
        return brisklog::iconPng(std::string(bareDesktopIcon));
    if (application == lockedScreen)
        return brisklog::iconPng(std::string(lockedScreenIcon));
    if (auto icon = m_catalogue.iconPng(application))
        return icon;
    const bool isDescribed = m_described && application == m_application;
    return isDescribed ? m_window->windowIcon() : std::nullopt;
}

} // namespace brisklog
