#include "platform/frontmost/WaylandConnection.h"

#include <QSocketNotifier>
#include <cerrno>
#include <chrono>
#include <string_view>
#include <utility>

namespace brisklog {
namespace {

int forwardEvent(const void* handler, void* /*proxy*/, std::uint32_t event, const wl_message* /*description*/,
                 wl_argument* arguments) {
    (*static_cast<const WaylandObject::Handler*>(handler))(event, arguments);
    return 0;
}

constexpr std::uint32_t globalAdded = 0;

constexpr std::chrono::seconds untilReconnection(1);

wl_proxy* proxyOf(wl_registry* registry) { return reinterpret_cast<wl_proxy*>(registry); }

wl_proxy* proxyOf(wl_callback* callback) { return reinterpret_cast<wl_proxy*>(callback); }

} // namespace

WaylandConnection::WaylandConnection(std::function<void()> closed)
    : m_closed(std::move(closed)), m_display(wl_display_connect(nullptr)) {
    if (m_display == nullptr)
        return;
    m_notifier = std::make_unique<QSocketNotifier>(wl_display_get_fd(raw()), QSocketNotifier::Read);
    QObject::connect(m_notifier.get(), &QSocketNotifier::activated, m_notifier.get(),
                     [this] { handleEvents(); });
}

WaylandConnection::~WaylandConnection() = default;

/// Does not wait for a compositor that does not read: the rest is sent after the next event.
void WaylandConnection::flush() { (void)wl_display_flush(raw()); }

void WaylandConnection::handleEvents() {
    if (readEvents()) {
        flush();
        return;
    }
    // The notifier is calling this function, so it must not be destroyed yet.
    m_notifier->setEnabled(false);
    m_notifier.release()->deleteLater();
    m_closed();
}

bool WaylandConnection::readEvents() {
    while (wl_display_prepare_read(raw()) != 0)
        if (wl_display_dispatch_pending(raw()) < 0)
            return false;
    if (wl_display_read_events(raw()) < 0 && errno != EAGAIN)
        return false;
    return wl_display_dispatch_pending(raw()) >= 0;
}

WaylandObject::WaylandObject(wl_proxy* proxy, Handler handler)
    : m_proxy(proxy), m_handler(std::move(handler)) {
    wl_proxy_add_dispatcher(m_proxy, forwardEvent, &m_handler, nullptr);
}

WaylandObject::~WaylandObject() { wl_proxy_destroy(m_proxy); }

WaylandGlobal::WaylandGlobal(const wl_interface& interface, std::function<void()> changed)
    : m_interface(interface), m_changed(std::move(changed)) {
    m_reconnection.setSingleShot(true);
    m_reconnection.setInterval(untilReconnection);
    QObject::connect(&m_reconnection, &QTimer::timeout, &m_reconnection, [this] {
        connect();
        if (!m_connection->isOpen())
            m_reconnection.start();
    });
    connect();
}

void WaylandGlobal::connect() {
    m_end.reset();
    m_registry.reset();
    m_connection.emplace([this] { loseConnection(); });
    if (!m_connection->isOpen())
        return;
    m_presence = Presence::beingAsked;
    m_registry.emplace(
        proxyOf(wl_display_get_registry(m_connection->raw())),
        [this](std::uint32_t event, const wl_argument* arguments) { handleRegistryEvent(event, arguments); });
    m_end.emplace(proxyOf(wl_display_sync(m_connection->raw())),
                  [this](std::uint32_t, const wl_argument*) { settle(); });
    m_connection->flush();
}

/// The connection is calling this, so the next one is made later.
void WaylandGlobal::loseConnection() {
    m_number.reset();
    m_reconnection.start();
    setPresence(Presence::missing);
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
    m_connection->flush();
    return object;
}

std::unique_ptr<WaylandObject> WaylandGlobal::afterRoundTrip(std::function<void()> answered) {
    auto object = std::make_unique<WaylandObject>(
        proxyOf(wl_display_sync(m_connection->raw())),
        [answered = std::move(answered)](std::uint32_t, const wl_argument*) { answered(); });
    m_connection->flush();
    return object;
}

void WaylandGlobal::destroyRemotely(const WaylandObject& object, std::uint32_t request) {
    wl_proxy_marshal(object.raw(), request);
    m_connection->flush();
}

} // namespace brisklog
