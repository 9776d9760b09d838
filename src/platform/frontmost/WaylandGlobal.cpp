#include "platform/frontmost/WaylandGlobal.h"

#include <string_view>
#include <utility>

namespace brisklog {
namespace {

constexpr std::uint32_t globalAdded = 0;

wl_proxy* proxyOf(wl_registry* registry) { return reinterpret_cast<wl_proxy*>(registry); }

wl_proxy* proxyOf(wl_callback* callback) { return reinterpret_cast<wl_proxy*>(callback); }

} // namespace

WaylandGlobal::WaylandGlobal(const wl_interface& interface, std::function<void()> changed)
    : m_interface(interface), m_changed(std::move(changed)), m_connection([this] {
          m_number.reset();
          setPresence(Presence::missing);
      }) {
    if (!m_connection.isOpen())
        return;
    m_presence = Presence::beingAsked;
    m_registry.emplace(
        proxyOf(wl_display_get_registry(m_connection.raw())),
        [this](std::uint32_t event, const wl_argument* arguments) { handleRegistryEvent(event, arguments); });
    m_end.emplace(proxyOf(wl_display_sync(m_connection.raw())),
                  [this](std::uint32_t, const wl_argument*) { settle(); });
    m_connection.flush();
}

void WaylandGlobal::handleRegistryEvent(std::uint32_t event, const wl_argument* arguments) {
    const std::uint32_t number = arguments[0].u;
    if (event == globalAdded) {
        if (std::string_view(arguments[1].s) == m_interface.name && !m_number)
            m_number = number;
    } else if (m_number == number) {
        m_number.reset();
    }
    if (m_presence != Presence::beingAsked)
        settle();
}

void WaylandGlobal::settle() { setPresence(m_number ? Presence::offered : Presence::missing); }

void WaylandGlobal::setPresence(Presence presence) {
    if (std::exchange(m_presence, presence) != presence)
        m_changed();
}

wl_proxy* WaylandGlobal::bind(std::uint32_t version) {
    auto* const registry = reinterpret_cast<wl_registry*>(m_registry->raw());
    auto* const object =
        static_cast<wl_proxy*>(wl_registry_bind(registry, m_number.value(), &m_interface, version));
    m_connection.flush();
    return object;
}

void WaylandGlobal::destroyRemotely(const WaylandObject& object, std::uint32_t request) {
    wl_proxy_marshal(object.raw(), request);
    m_connection.flush();
}

} // namespace brisklog
