#pragma once

#include "platform/frontmost/ToplevelStates.h"
#include "platform/frontmost/WaylandGlobal.h"

namespace brisklog {

/// Listens to what a wlroots compositor tells about the windows of all programs, for as long as it lives.
class ForeignToplevels {
public:
    /// `finished` is called when the compositor says that it will tell nothing more.
    explicit ForeignToplevels(std::function<void()> finished);

    /// The application id, possibly empty, of the window that was last told to be in front; null when none
    /// is, when the compositor has not told yet and when it tells nothing more.
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
