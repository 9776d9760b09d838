#pragma once

#include "platform/frontmost/WaylandConnection.h"

#include <optional>
#include <string>

namespace brisklog {

/// One of the things a compositor may offer, asked for over a connection of its own.
class WaylandGlobal {
public:
    enum class Presence {
        beingAsked, ///< the compositor has not answered yet
        offered,
        missing, ///< not offered, withdrawn, or no compositor is there
    };

    /// `changed` is called whenever the presence has become another, never before this returns.
    WaylandGlobal(const wl_interface& interface, std::function<void()> changed);

    [[nodiscard]] Presence presence() const { return m_presence; }

    /// A new object of it; only while it is offered.
    [[nodiscard]] wl_proxy* bind(std::uint32_t version);

    /// Gives an object of this connection back that has such a request.
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
    /// Answered after everything that is offered was named.
    std::optional<WaylandObject> m_end;
};

} // namespace brisklog
