#pragma once

#include <functional>
#include <memory>
#include <wayland-client.h>

class QSocketNotifier;

namespace brisklog {

/// A connection of our own to the compositor that draws this desktop. It reads what has come and never waits
/// for anything. The objects made on it must go before it does.
class WaylandConnection {
public:
    /// `closed` is called when the compositor has gone or has thrown us out; not when none was there.
    explicit WaylandConnection(std::function<void()> closed);
    ~WaylandConnection();
    WaylandConnection(const WaylandConnection&) = delete;
    WaylandConnection& operator=(const WaylandConnection&) = delete;

    /// False when no compositor answered or it has gone.
    [[nodiscard]] bool isOpen() const { return m_notifier != nullptr; }

    /// Only while open.
    [[nodiscard]] wl_display* raw() const { return m_display.get(); }

    /// Sends the requests made since the last time.
    void flush();

private:
    struct Closer {
        void operator()(wl_display* display) const { wl_display_disconnect(display); }
    };

    void handleEvents();
    [[nodiscard]] bool readEvents();

    std::function<void()> m_closed;
    std::unique_ptr<wl_display, Closer> m_display;
    std::unique_ptr<QSocketNotifier> m_notifier;
};

/// An object of the compositor that is listened to. It is forgotten with the value; what the compositor says
/// to it afterwards is dropped.
class WaylandObject {
public:
    /// The number of the event, its arguments. It may end the object as the last thing it does.
    using Handler = std::function<void(std::uint32_t event, const wl_argument* arguments)>;

    WaylandObject(wl_proxy* proxy, Handler handler);
    ~WaylandObject();
    WaylandObject(const WaylandObject&) = delete;
    WaylandObject& operator=(const WaylandObject&) = delete;

    [[nodiscard]] wl_proxy* raw() const { return m_proxy; }

private:
    wl_proxy* m_proxy;
    Handler m_handler;
};

} // namespace brisklog
