#pragma once

#include "platform/frontmost/ToplevelStates.h"
#include "platform/frontmost/WaylandConnection.h"

#include <map>
#include <optional>

namespace brisklog {

/// Listens to what a wlroots compositor reports about the windows of all programs, for as long as it exists.
class ForeignToplevels {
public:
    /// `finished` is called when the compositor announces that it will report nothing more.
    explicit ForeignToplevels(std::function<void()> finished);

    /// The application id, possibly empty, of the window last reported as frontmost; null when there is none,
    /// when the compositor has not reported any yet, and when it reports nothing more.
    [[nodiscard]] const std::string* applicationIdInFront() const { return m_states.inFront(); }

private:
    void listenIfOffered();
    void handleManagerEvent(std::uint32_t event, const wl_argument* arguments);
    void addHandle(wl_proxy* proxy);
    void handleEvent(ToplevelStates::Window window, std::uint32_t event, const wl_argument* arguments);
    void removeHandle(ToplevelStates::Window window);
    void forgetAll();

    std::function<void()> m_finished;
    ToplevelStates m_states;
    ToplevelStates::Window m_lastWindow = 0;
    WaylandGlobal m_global;
    std::optional<WaylandObject> m_manager;
    std::map<ToplevelStates::Window, WaylandObject> m_handles;
};

} // namespace brisklog
