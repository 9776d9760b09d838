#include "platform/frontmost/X11FrontmostWindow.h"

#include "platform/frontmost/ApplicationIcons.h"
#include "platform/frontmost/ProgramName.h"

#include <QSysInfo>
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

/// The number means nothing on another machine, from where windows may be shown here.
std::uint32_t processOf(const X11WindowFacts& facts) {
    const bool isOfThisMachine =
        textOf(facts.machine) == QSysInfo::machineHostName().toLatin1().toStdString();
    return isOfThisMachine && !facts.names.process.empty() ? facts.names.process.front() : 0;
}

WindowIdentity identityOf(const X11WindowFacts& facts) {
    // The instance comes before the class, which is more reliable.
    std::vector<std::string> instanceAndClass = textsOf(textOf(facts.names.windowClass));
    instanceAndClass.resize(2);
    const std::vector<std::string> ids = textsOf(textOf(facts.names.applicationId));
    WindowIdentity identity{
        .names = {ids.empty() ? std::string() : ids.front(), instanceAndClass[1], instanceAndClass[0]},
        .windowClass = instanceAndClass[1].empty() ? instanceAndClass[0] : instanceAndClass[1],
        .program = {},
        .process = processOf(facts)};
    std::erase(identity.names, std::string());
    if (identity.process != 0)
        identity.program = programName(identity.process);
    return identity;
}

InFront inFrontFrom(const X11WindowFacts& facts) {
    if (facts.window == XCB_WINDOW_NONE)
        return {.kind = InFront::Kind::nothing};
    if (facts.isDesktop)
        return {.kind = InFront::Kind::desktop};
    return {.kind = InFront::Kind::window, .window = identityOf(facts)};
}

} // namespace

FrontmostWindow::Availability X11FrontmostWindow::availability() const {
    return m_manager.tellsActiveWindow() ? Availability::available : Availability::unavailable;
}

void X11FrontmostWindow::beginWatching() {
    if (!m_activeWindow)
        m_activeWindow.emplace();
}

void X11FrontmostWindow::endWatching() {
    m_activeWindow.reset();
    m_facts = {};
    m_seen = {};
}

const InFront& X11FrontmostWindow::inFront() {
    // A manager that has ended leaves the last active window's number behind.
    if (!m_activeWindow || !m_manager.tellsActiveWindow())
        return m_seen = {};
    if (!m_activeWindow->look())
        return m_unknown;
    static const X11WindowFacts none;
    const auto* const active = m_activeWindow->active();
    const X11WindowFacts& facts = active != nullptr ? *active : none;
    if (facts != m_facts || m_seen.kind == InFront::Kind::unknown) {
        m_seen = inFrontFrom(facts);
        m_facts = facts;
    }
    return m_seen;
}

InFront X11FrontmostWindow::behind(const OwnWindows& own) {
    if (!m_activeWindow)
        return {};
    for (const X11WindowFacts& facts : m_activeWindow->stack())
        if (InFront seen = inFrontFrom(facts); !own.contain(seen.window))
            return seen;
    return {.kind = InFront::Kind::nothing};
}

std::optional<std::string> X11FrontmostWindow::windowIcon() {
    const bool isKnown = m_activeWindow && m_facts.window != XCB_WINDOW_NONE;
    return isKnown ? iconPng(m_activeWindow->icons(m_facts.window)) : std::nullopt;
}

} // namespace brisklog
