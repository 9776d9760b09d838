#pragma once

#include <QTimer>
#include <functional>
#include <memory>
#include <optional>
#include <wayland-client.h>

class QSocketNotifier;

namespace brisklog {

/// A connection of our own to the compositor that draws this desktop. It reads what has arrived and never
/// blocks. Objects created on it must be destroyed before it.
class WaylandConnection {
public:
    /// `closed` is called when the compositor has gone or has disconnected us; not when there was none.
    explicit WaylandConnection(std::function<void()> closed);
    ~WaylandConnection();
    WaylandConnection(const WaylandConnection&) = delete;
    WaylandConnection& operator=(const WaylandConnection&) = delete;

    /// False when no compositor answered or it has gone.
    [[nodiscard]] bool isOpen() const { return m_notifier != nullptr; }

    /// Only while open.
    [[nodiscard]] wl_display* raw() const { return m_display.get(); }

    /// Sends the requests made since the last call.
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

/// Listens to an object of the compositor. On destruction only the local proxy is destroyed; later events for
/// it are dropped.
class WaylandObject {
public:
    /// Receives the event's number and arguments. It may destroy the object as its last action.
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

/// A global that a compositor may offer, requested over a separate connection. A connection that the
/// compositor has dropped is made anew, and a compositor that has ended is found again when it comes back.
class WaylandGlobal {
public:
    enum class Presence {
        beingAsked, ///< the compositor has not answered yet
        offered,
        missing, ///< not offered, withdrawn, or no compositor is there
    };

    /// `changed` is called whenever the presence has changed, never before this returns. Objects bound to it
    /// must be gone when it returns while nothing is offered.
    WaylandGlobal(const wl_interface& interface, std::function<void()> changed);

    [[nodiscard]] Presence presence() const { return m_presence; }

    /// Binds a new object to it; only while it is offered.
    [[nodiscard]] wl_proxy* bind(std::uint32_t version);

    /// Calls `answered` once the compositor has processed everything sent so far, unless it is destroyed
    /// first.
    [[nodiscard]] std::unique_ptr<WaylandObject> afterRoundTrip(std::function<void()> answered);

    /// Destroys an object of this connection in the compositor, by its request with that number.
    void destroyRemotely(const WaylandObject& object, std::uint32_t request);

private:
    void connect();
    void loseConnection();
    void handleRegistryEvent(std::uint32_t event, const wl_argument* arguments);
    void setPresence(Presence presence);
    void settle();

    const wl_interface& m_interface;
    std::function<void()> m_changed;
    Presence m_presence = Presence::missing;
    /// The number under which it is offered.
    std::optional<std::uint32_t> m_number;
    std::optional<WaylandConnection> m_connection;
    std::optional<WaylandObject> m_registry;
    /// Answered once all globals have been announced.
    std::optional<WaylandObject> m_end;
    QTimer m_reconnection;
};

} // namespace brisklog
