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

    /// False once there is no connection; one that has been lost is made anew, one that never was is not.
    [[nodiscard]] bool isConnected() const { return m_global.presence() != WaylandGlobal::Presence::missing; }

    /// Whether the compositor has reported all windows that there are; not before, and not while there is no
    /// connection to it.
    [[nodiscard]] bool hasReported() const { return m_hasReported; }

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
    std::unique_ptr<WaylandObject> m_firstReport;
    bool m_hasReported = false;
    std::map<ToplevelStates::Window, WaylandObject> m_handles;
};

} // namespace brisklog
