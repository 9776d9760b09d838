#include "platform/frontmost/X11FrontmostApplication.h"

#include "platform/frontmost/ApplicationIcons.h"
#include "platform/frontmost/ProgramName.h"

#include <algorithm>

namespace brisklog {
namespace {

std::string_view textOf(const std::vector<std::uint8_t>& bytes) {
    return {reinterpret_cast<const char*>(bytes.data()), bytes.size()};
}

/// The texts of a property, each terminated by a zero byte.
std::vector<std::string> textsOf(std::string_view bytes) {
    std::vector<std::string> texts;
    while (!bytes.empty()) {
        const std::size_t end = std::min(bytes.find('\0'), bytes.size());
        texts.push_back(windowName(bytes.substr(0, end)));
        bytes.remove_prefix(std::min(end + 1, bytes.size()));
    }
    return texts;
}

WindowIdentity identityOf(const X11WindowFacts& facts) {
    // The instance comes before the class, which is more reliable.
    std::vector<std::string> instanceAndClass = textsOf(textOf(facts.windowClass));
    instanceAndClass.resize(2);
    const std::vector<std::string> ids = textsOf(textOf(facts.applicationId));
    WindowIdentity identity{
        .names = {ids.empty() ? std::string() : ids.front(), instanceAndClass[1], instanceAndClass[0]},
        .windowClass = instanceAndClass[1].empty() ? instanceAndClass[0] : instanceAndClass[1],
        .program = {}};
    std::erase(identity.names, std::string());
    if (!facts.process.empty())
        identity.program = programName(facts.process.front());
    return identity;
}

} // namespace

std::optional<X11WindowFacts> X11ActiveWindow::ask() {
    const auto activeQuestion = m_server.askFor(m_server.root(), m_activeWindow);
    const xcb_window_t asked = m_last;
    const Questions questions = askAbout(asked);
    const auto active = m_server.numbers(activeQuestion);
    const auto facts = answer(asked, questions);
    m_last = active && !active->empty() ? active->front() : static_cast<xcb_window_t>(XCB_WINDOW_NONE);
    if (m_last == XCB_WINDOW_NONE || m_last == asked)
        return m_last == XCB_WINDOW_NONE ? std::nullopt : facts;
    return answer(m_last, askAbout(m_last));
}

X11ActiveWindow::Questions X11ActiveWindow::askAbout(xcb_window_t window) const {
    return {.windowClass = m_server.askFor(window, XCB_ATOM_WM_CLASS),
            .applicationId = m_server.askFor(window, m_applicationId),
            .process = m_server.askFor(window, m_process)};
}

std::optional<X11WindowFacts> X11ActiveWindow::answer(xcb_window_t window, const Questions& questions) const {
    // All three are always read: an unread reply would be kept for ever.
    auto windowClass = m_server.bytes(questions.windowClass);
    auto applicationId = m_server.bytes(questions.applicationId);
    auto process = m_server.numbers(questions.process);
    if (!windowClass || !applicationId || !process)
        return std::nullopt;
    return X11WindowFacts{.window = window,
                          .windowClass = std::move(*windowClass),
                          .applicationId = std::move(*applicationId),
                          .process = std::move(*process)};
}

std::vector<std::uint32_t> X11ActiveWindow::icons(xcb_window_t window) const {
    return m_server.numbers(m_server.askFor(window, m_icon)).value_or(std::vector<std::uint32_t>());
}

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
    return m_gaps.bridgeGap(inFront());
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
