#pragma once

#include <chrono>
#include <cstdint>
#include <cstdlib>
#include <memory>
#include <optional>
#include <vector>
#include <xcb/xcb.h>

namespace brisklog {

struct X11Free {
    void operator()(void* reply) const { std::free(reply); }
};

template <class T>
using X11Reply = std::unique_ptr<T, X11Free>;

/// Takes ownership of a reply or event of the X server.
template <class T>
X11Reply<T> owned(T* reply) {
    return X11Reply<T>(reply);
}

/// A connection of our own to the X server that DISPLAY names.
class X11Connection {
public:
    X11Connection();

    /// False when no server answered or it has gone.
    [[nodiscard]] bool isOpen() const { return xcb_connection_has_error(raw()) == 0; }

    [[nodiscard]] xcb_connection_t* raw() const { return m_connection.get(); }

    /// The root window of the default screen; 0 without a server.
    [[nodiscard]] xcb_window_t root() const { return m_root; }

    [[nodiscard]] xcb_atom_t atom(const char* name) const;

    /// Requests a property; the reply is read later, so that several requests take one round trip.
    [[nodiscard]] xcb_get_property_cookie_t askFor(xcb_window_t window, xcb_atom_t property) const;

    /// The property's bytes, empty when the window has no such property; absent when there is no such window.
    [[nodiscard]] std::optional<std::vector<std::uint8_t>> bytes(xcb_get_property_cookie_t question) const;

    /// The property's 32-bit numbers, with the same meaning.
    [[nodiscard]] std::optional<std::vector<std::uint32_t>> numbers(xcb_get_property_cookie_t question) const;

    /// These numbers of a window that cannot vanish, waiting only so long: a program that keeps the server to
    /// itself (a grab) keeps everyone else waiting. Absent when the reply has not come, which may be asked
    /// for again; once it has come, those to all earlier requests have come too.
    [[nodiscard]] std::optional<std::vector<std::uint32_t>>
    numbersWithin(std::chrono::milliseconds patience, xcb_get_property_cookie_t question) const;

private:
    struct Closer {
        void operator()(xcb_connection_t* connection) const { xcb_disconnect(connection); }
    };

    int m_screen = 0;
    std::unique_ptr<xcb_connection_t, Closer> m_connection;
    xcb_window_t m_root = XCB_WINDOW_NONE;
};

} // namespace brisklog
