#include "platform/frontmost/ForeignToplevels.h"

#include "platform/frontmost/ForeignToplevelProtocol.h"
#include "platform/frontmost/WindowIdentity.h"

#include <algorithm>
#include <cstring>
#include <utility>

namespace brisklog {
namespace {

using foreigntoplevel::HandleEvent;
using foreigntoplevel::ManagerEvent;

bool isActivated(const wl_array& states) {
    constexpr auto activated = static_cast<std::uint32_t>(foreigntoplevel::State::activated);
    const auto* state = static_cast<const std::uint32_t*>(states.data);
    const auto* const end = state + states.size / sizeof *state;
    return std::find(state, end, activated) != end;
}

} // namespace

ForeignToplevels::ForeignToplevels(std::function<void()> finished)
    : m_finished(std::move(finished)), m_global(foreigntoplevel::manager, [this] { listenIfOffered(); }) {}

void ForeignToplevels::listenIfOffered() {
    forgetAll();
    m_manager.reset();
    if (m_global.presence() != WaylandGlobal::Presence::offered)
        return;
    m_manager.emplace(
        m_global.bind(foreigntoplevel::version),
        [this](std::uint32_t event, const wl_argument* arguments) { handleManagerEvent(event, arguments); });
    m_firstReport = m_global.afterRoundTrip([this] { m_hasReported = true; });
}

void ForeignToplevels::handleManagerEvent(std::uint32_t event, const wl_argument* arguments) {
    switch (static_cast<ManagerEvent>(event)) {
    case ManagerEvent::toplevel:
        return addHandle(reinterpret_cast<wl_proxy*>(arguments[0].o));
    case ManagerEvent::finished:
        forgetAll();
        return m_finished();
    }
}

void ForeignToplevels::addHandle(wl_proxy* proxy) {
    const auto window = ++m_lastWindow;
    m_handles.try_emplace(window, proxy, [this, window](std::uint32_t event, const wl_argument* arguments) {
        handleEvent(window, event, arguments);
    });
}

void ForeignToplevels::handleEvent(ToplevelStates::Window window, std::uint32_t event,
                                   const wl_argument* arguments) {
    switch (static_cast<HandleEvent>(event)) {
    case HandleEvent::applicationId:
        return m_states.setApplicationId(window, windowName(arguments[0].s));
    case HandleEvent::state:
        return m_states.setActive(window, isActivated(*arguments[0].a));
    case HandleEvent::done:
        return m_states.apply(window);
    case HandleEvent::closed:
        return removeHandle(window);
    case HandleEvent::title:
    case HandleEvent::outputEnter:
    case HandleEvent::outputLeave:
        return;
    }
}

void ForeignToplevels::removeHandle(ToplevelStates::Window window) {
    m_states.close(window);
    const auto handle = m_handles.find(window);
    m_global.destroyRemotely(handle->second, foreigntoplevel::destroyHandle);
    m_handles.erase(handle);
}

void ForeignToplevels::forgetAll() {
    m_states.closeAll();
    m_handles.clear();
    m_firstReport.reset();
    m_hasReported = false;
}

} // namespace brisklog
