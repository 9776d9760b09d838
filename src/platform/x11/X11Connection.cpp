#include "platform/x11/X11Connection.h"

#include <cstring>
#include <poll.h>
#include <xcb/xcbext.h>

namespace brisklog {
namespace {

/// In units of four bytes: 4 MiB, far more than any property that is read here.
constexpr std::uint32_t longestProperty = 1U << 20;

constexpr std::uint8_t bitsOfNumber = 32;
constexpr std::uint8_t bitsOfByte = 8;

template <class T>
std::vector<T> values(const xcb_get_property_reply_t& reply) {
    std::vector<T> result(static_cast<std::size_t>(xcb_get_property_value_length(&reply)) / sizeof(T));
    std::memcpy(result.data(), xcb_get_property_value(&reply), result.size() * sizeof(T));
    return result;
}

std::vector<std::uint32_t> numbersIn(const xcb_get_property_reply_t& reply) {
    return reply.format == bitsOfNumber ? values<std::uint32_t>(reply) : std::vector<std::uint32_t>();
}

} // namespace

X11Connection::X11Connection() : m_connection(xcb_connect(nullptr, &m_screen)) {
    if (!isOpen())
        return;
    auto screens = xcb_setup_roots_iterator(xcb_get_setup(raw()));
    for (int left = m_screen; left > 0 && screens.rem > 1; --left)
        xcb_screen_next(&screens);
    m_root = screens.data->root;
}

xcb_atom_t X11Connection::atom(const char* name) const {
    const auto question = xcb_intern_atom(raw(), 0, static_cast<std::uint16_t>(std::strlen(name)), name);
    const auto reply = owned(xcb_intern_atom_reply(raw(), question, nullptr));
    return reply ? reply->atom : static_cast<xcb_atom_t>(XCB_ATOM_NONE);
}

xcb_get_property_cookie_t X11Connection::askFor(xcb_window_t window, xcb_atom_t property) const {
    return xcb_get_property(raw(), 0, window, property, XCB_GET_PROPERTY_TYPE_ANY, 0, longestProperty);
}

std::optional<std::vector<std::uint8_t>> X11Connection::bytes(xcb_get_property_cookie_t question) const {
    const auto reply = owned(xcb_get_property_reply(raw(), question, nullptr));
    if (!reply)
        return std::nullopt;
    return reply->format == bitsOfByte ? values<std::uint8_t>(*reply) : std::vector<std::uint8_t>();
}

std::optional<std::vector<std::uint32_t>> X11Connection::numbers(xcb_get_property_cookie_t question) const {
    const auto reply = owned(xcb_get_property_reply(raw(), question, nullptr));
    if (!reply)
        return std::nullopt;
    return numbersIn(*reply);
}

std::optional<std::vector<std::uint32_t>>
X11Connection::numbersWithin(std::chrono::milliseconds patience, xcb_get_property_cookie_t question) const {
    const auto end = std::chrono::steady_clock::now() + patience;
    xcb_flush(raw());
    for (;;) {
        void* reply = nullptr;
        xcb_generic_error_t* error = nullptr;
        const bool hasCome = xcb_poll_for_reply(raw(), question.sequence, &reply, &error) != 0;
        const auto ownedError = owned(error);
        if (const auto answer = owned(static_cast<xcb_get_property_reply_t*>(reply)))
            return numbersIn(*answer);
        if (hasCome)
            return std::vector<std::uint32_t>();
        const auto left =
            std::chrono::ceil<std::chrono::milliseconds>(end - std::chrono::steady_clock::now());
        pollfd socket{.fd = xcb_get_file_descriptor(raw()), .events = POLLIN, .revents = 0};
        if (left.count() <= 0 || ::poll(&socket, 1, static_cast<int>(left.count())) == 0)
            return std::nullopt;
    }
}

} // namespace brisklog
