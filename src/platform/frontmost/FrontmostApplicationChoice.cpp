#include "platform/frontmost/FrontmostApplicationChoice.h"

#include "platform/frontmost/KWinFrontmostApplication.h"
#include "platform/frontmost/WaylandSession.h"
#include "platform/frontmost/WlrootsFrontmostApplication.h"
#include "platform/frontmost/X11FrontmostApplication.h"

namespace brisklog {

FirstAnsweringApplication::FirstAnsweringApplication(std::vector<Maker> ways) : m_ways(std::move(ways)) {
    tryNextWays();
}

FrontmostApplication::Availability FirstAnsweringApplication::availability() const {
    return m_way ? m_way->availability() : Availability::unavailable;
}

void FirstAnsweringApplication::beginWatching() {
    m_isWatching = true;
    if (m_way)
        m_way->beginWatching();
}

void FirstAnsweringApplication::endWatching() {
    m_isWatching = false;
    if (m_way)
        m_way->endWatching();
}

std::optional<DesktopApplication> FirstAnsweringApplication::current() {
    return m_way ? m_way->current() : std::nullopt;
}

std::optional<std::string> FirstAnsweringApplication::iconPng(const DesktopApplication& application) {
    return m_way ? m_way->iconPng(application) : std::nullopt;
}

/// The last way is kept though it does not answer yet: a window manager may come later.
void FirstAnsweringApplication::tryNextWays() {
    while (m_nextWay < m_ways.size() && (!m_way || m_way->availability() == Availability::unavailable)) {
        if (m_way) {
            m_way->endWatching();
            m_givenUp.push_back(std::move(m_way));
        }
        m_way = m_ways[m_nextWay++]();
        m_subscription = m_way->observe([this] { hearAnnouncement(); });
        if (m_isWatching)
            m_way->beginWatching();
    }
    m_hasAnswered = availability() == Availability::available;
}

/// What has answered once is the desktop's way, also when it falls silent.
void FirstAnsweringApplication::hearAnnouncement() {
    if (!m_hasAnswered)
        tryNextWays();
    announce();
}

std::unique_ptr<FrontmostApplication> chooseFrontmostApplication() {
    std::vector<FirstAnsweringApplication::Maker> ways;
    if (isWaylandSession()) {
        ways.emplace_back([] { return std::make_unique<WlrootsFrontmostApplication>(); });
        ways.emplace_back([] { return std::make_unique<KWinFrontmostApplication>(); });
    } else {
        ways.emplace_back([] { return std::make_unique<X11FrontmostApplication>(); });
    }
    return std::make_unique<FirstAnsweringApplication>(std::move(ways));
}

} // namespace brisklog
