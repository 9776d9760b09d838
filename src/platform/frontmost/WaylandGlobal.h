#pragma once

#include "platform/frontmost/WaylandConnection.h"

#include <optional>
#include <string>

namespace brisklog {

/// A global that a compositor may offer, requested over a separate connection.
class WaylandGlobal {
public:
    enum class Presence {
        beingAsked, ///< the compositor has not answered yet
        offered,
        missing, ///< not offered, withdrawn, or there is no compositor
    };

    /// `changed` is called whenever the presence has changed, never before this returns.
    WaylandGlobal(const wl_interface& interface, std::function<void()> changed);

    [[nodiscard]] Presence presence() const { return m_presence; }

    /// Binds a new object to it; only while it is offered.
    [[nodiscard]] wl_proxy* bind(std::uint32_t version);

    /// Destroys an object of this connection in the compositor, by its request with that number.
    void destroyRemotely(const WaylandObject& object, std::uint32_t request);

private:
    void handleRegistryEvent(std::uint32_t event, const wl_argument* arguments);
    void setPresence(Presence presence);
    void settle();

    const wl_interface& m_interface;
    std::function<void()> m_changed;
    Presence m_presence = Presence::missing;
    /// The number under which it is offered.
    std::optional<std::uint32_t> m_number;
    WaylandConnection m_connection;
    std::optional<WaylandObject> m_registry;
    /// Answered once all globals have been announced.
    std::optional<WaylandObject> m_end;
};

} // namespace brisklog
