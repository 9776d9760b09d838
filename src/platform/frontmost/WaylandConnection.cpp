#include "platform/frontmost/WaylandConnection.h"

#include <QSocketNotifier>
#include <cerrno>
#include <utility>

namespace brisklog {
namespace {

int handEventOn(const void* handler, void* /*proxy*/, std::uint32_t event, const wl_message* /*description*/,
                wl_argument* arguments) {
    (*static_cast<const WaylandObject::Handler*>(handler))(event, arguments);
    return 0;
}

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
    wl_proxy_add_dispatcher(m_proxy, handEventOn, &m_handler, nullptr);
}

WaylandObject::~WaylandObject() { wl_proxy_destroy(m_proxy); }

} // namespace brisklog
