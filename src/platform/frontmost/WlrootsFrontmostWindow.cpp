#include "platform/frontmost/WlrootsFrontmostWindow.h"

#include "platform/frontmost/ForeignToplevelProtocol.h"

#include <utility>

namespace brisklog {
namespace {

/// The protocol does not say which process a window belongs to.
WindowIdentity identityOf(const std::string& applicationId) {
    if (applicationId.empty())
        return {};
    return {.names = {applicationId}, .windowClass = applicationId, .program = {}};
}

} // namespace

WlrootsFrontmostWindow::WlrootsFrontmostWindow()
    : m_global(foreigntoplevel::manager, [this] { notePresence(); }) {}

FrontmostWindow::Availability WlrootsFrontmostWindow::availability() const {
    if (m_global.presence() == WaylandGlobal::Presence::beingAsked)
        return Availability::notYetKnown;
    const bool isOffered = m_global.presence() == WaylandGlobal::Presence::offered;
    return isOffered && !m_hasFinished ? Availability::available : Availability::unavailable;
}

void WlrootsFrontmostWindow::beginWatching() {
    if (m_toplevels)
        return;
    m_toplevels.emplace([this] { noteFinished(); });
    if (std::exchange(m_hasFinished, false))
        announceLater();
}

void WlrootsFrontmostWindow::endWatching() { m_toplevels.reset(); }

const InFront& WlrootsFrontmostWindow::inFront() {
    if (!m_toplevels || !m_toplevels->hasReported())
        return m_seen = {};
    const auto* const inFront = m_toplevels->applicationIdInFront();
    if (inFront == nullptr)
        return m_seen = {.kind = InFront::Kind::nothing};
    return m_seen = {.kind = InFront::Kind::window, .window = identityOf(*inFront)};
}

/// Watching may have begun while there was no compositor.
void WlrootsFrontmostWindow::notePresence() {
    if (m_global.presence() == WaylandGlobal::Presence::offered && m_toplevels && !m_toplevels->isConnected())
        m_toplevels.emplace([this] { noteFinished(); });
    announceLater();
}

void WlrootsFrontmostWindow::noteFinished() {
    m_hasFinished = true;
    announceLater();
}

/// Queued, because an observer may end the watching, which must not happen while an event is being handled.
void WlrootsFrontmostWindow::announceLater() {
    QMetaObject::invokeMethod(
        &m_context, [this] { announce(); }, Qt::QueuedConnection);
}

} // namespace brisklog
