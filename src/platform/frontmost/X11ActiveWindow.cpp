#include "platform/frontmost/X11ActiveWindow.h"

#include <algorithm>
#include <utility>

namespace brisklog {
namespace {

/// For the answer to a look. A server that is merely busy answers in time or at the next look.
constexpr std::chrono::milliseconds patience(50);

/// The number of the desktop of a window that is shown on all of them.
constexpr std::uint32_t allDesktops = 0xFFFFFFFF;

bool contains(const std::vector<std::uint32_t>& numbers, std::uint32_t number) {
    return std::ranges::find(numbers, number) != numbers.end();
}

std::uint32_t firstOf(const std::vector<std::uint32_t>& numbers, std::uint32_t otherwise) {
    return numbers.empty() ? otherwise : numbers.front();
}

} // namespace

bool X11ActiveWindow::look() {
    for (;;)
        switch (lookAt(m_expected)) {
        case Outcome::unanswered:
            return false;
        case Outcome::settled:
            return true;
        case Outcome::another:
            break;
        }
}

/// Asks about the window that is expected to be active and which one it really is.
X11ActiveWindow::Outcome X11ActiveWindow::lookAt(xcb_window_t window) {
    if (!m_pending)
        m_pending = Look{.asked = window,
                         .questions = askAbout(window),
                         .active = m_server.askFor(m_server.root(), m_activeWindow)};
    const auto active = m_server.numbersWithin(patience, m_pending->active);
    if (!active)
        return Outcome::unanswered;
    const Look look = *std::exchange(m_pending, std::nullopt);
    auto names = answer(look.questions);
    m_expected = firstOf(*active, XCB_WINDOW_NONE);
    if (m_expected != look.asked && m_expected != XCB_WINDOW_NONE)
        return Outcome::another;
    const bool isUnchanged = m_active && m_active->window == m_expected && m_active->names == names;
    if (!isUnchanged)
        m_active = factsOf(m_expected, std::move(names));
    return Outcome::settled;
}

X11ActiveWindow::Questions X11ActiveWindow::askAbout(xcb_window_t window) const {
    return {.windowClass = m_server.askFor(window, XCB_ATOM_WM_CLASS),
            .applicationId = m_server.askFor(window, m_applicationId),
            .process = m_server.askFor(window, m_process)};
}

std::optional<X11WindowFacts::Names> X11ActiveWindow::answer(const Questions& questions) const {
    // All three are always read: an unread reply would be kept for ever.
    auto windowClass = m_server.bytes(questions.windowClass);
    auto applicationId = m_server.bytes(questions.applicationId);
    auto process = m_server.numbers(questions.process);
    if (!windowClass || !applicationId || !process)
        return std::nullopt;
    return X11WindowFacts::Names{.windowClass = std::move(*windowClass),
                                 .applicationId = std::move(*applicationId),
                                 .process = std::move(*process)};
}

std::optional<X11WindowFacts> X11ActiveWindow::factsOf(xcb_window_t window,
                                                       std::optional<X11WindowFacts::Names> names) const {
    if (window == XCB_WINDOW_NONE || !names)
        return std::nullopt;
    const auto machine = m_server.askFor(window, XCB_ATOM_WM_CLIENT_MACHINE);
    return X11WindowFacts{.window = window,
                          .names = std::move(*names),
                          .machine = m_server.bytes(machine).value_or(std::vector<std::uint8_t>()),
                          .isDesktop = contains(numbersOf(window, m_type), m_desktopType)};
}

std::vector<X11WindowFacts> X11ActiveWindow::stack() const {
    const std::uint32_t shownDesktop = firstOf(numbersOf(m_server.root(), m_shownDesktop), allDesktops);
    auto windows = numbersOf(m_server.root(), m_stacking);
    std::ranges::reverse(windows);
    std::vector<X11WindowFacts> stack;
    for (const xcb_window_t window : windows)
        if (isInUse(window, shownDesktop))
            if (auto facts = factsOf(window, answer(askAbout(window))))
                stack.push_back(std::move(*facts));
    return stack;
}

bool X11ActiveWindow::isInUse(xcb_window_t window, std::uint32_t shownDesktop) const {
    const auto state = numbersOf(window, m_state);
    const std::uint32_t desktop = firstOf(numbersOf(window, m_desktop), allDesktops);
    const bool isOnShownDesktop =
        desktop == shownDesktop || desktop == allDesktops || shownDesktop == allDesktops;
    return isOnShownDesktop && !contains(state, m_hidden) && !contains(state, m_skipTaskbar) &&
           !contains(numbersOf(window, m_type), m_dockType);
}

std::vector<std::uint32_t> X11ActiveWindow::icons(xcb_window_t window) const {
    return numbersOf(window, m_icon);
}

std::vector<std::uint32_t> X11ActiveWindow::numbersOf(xcb_window_t window, xcb_atom_t property) const {
    return m_server.numbers(m_server.askFor(window, property)).value_or(std::vector<std::uint32_t>());
}

} // namespace brisklog
