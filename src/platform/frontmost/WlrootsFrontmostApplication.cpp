#include "platform/frontmost/WlrootsFrontmostApplication.h"

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

WlrootsFrontmostApplication::WlrootsFrontmostApplication()
    : m_global(foreigntoplevel::manager, [this] { announceLater(); }) {}

FrontmostApplication::Availability WlrootsFrontmostApplication::availability() const {
    if (m_global.presence() == WaylandGlobal::Presence::beingAsked)
        return Availability::notYetKnown;
    const bool isOffered = m_global.presence() == WaylandGlobal::Presence::offered;
    return isOffered && !m_hasFinished ? Availability::available : Availability::unavailable;
}

void WlrootsFrontmostApplication::beginWatching() {
    if (m_toplevels)
        return;
    m_toplevels.emplace([this] { noteFinished(); });
    if (std::exchange(m_hasFinished, false))
        announceLater();
}

void WlrootsFrontmostApplication::endWatching() {
    m_toplevels.reset();
    m_described.forget();
}

std::optional<DesktopApplication> WlrootsFrontmostApplication::current() {
    if (!m_toplevels)
        return std::nullopt;
    const auto* const inFront = m_toplevels->applicationIdInFront();
    return m_described.answer(inFront != nullptr ? std::optional(identityOf(*inFront)) : std::nullopt);
}

std::optional<std::string> WlrootsFrontmostApplication::iconPng(const DesktopApplication& application) {
    return m_described.iconPng(application);
}

void WlrootsFrontmostApplication::noteFinished() {
    m_hasFinished = true;
    announceLater();
}

/// Queued, because an observer may end the watching, which must not happen while an event is being handled.
void WlrootsFrontmostApplication::announceLater() {
    QMetaObject::invokeMethod(
        &m_context, [this] { announce(); }, Qt::QueuedConnection);
}

} // namespace brisklog
