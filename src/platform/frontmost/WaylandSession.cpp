#include "platform/frontmost/WaylandSession.h"

#include "platform/x11/X11Connection.h"

#include <algorithm>
#include <cstring>
#include <string_view>
#include <xcb/randr.h>

namespace brisklog {
namespace {

bool isSet(const char* variable) {
    const char* const value = std::getenv(variable);
    return value != nullptr && *value != '\0';
}

bool hasExtension(const X11Connection& server, std::string_view name) {
    const auto question =
        xcb_query_extension(server.raw(), static_cast<std::uint16_t>(name.size()), name.data());
    const auto reply = owned(xcb_query_extension_reply(server.raw(), question, nullptr));
    return reply && reply->present != 0;
}

bool isNamedForWayland(const X11Connection& server, xcb_randr_output_t output) {
    const auto question = xcb_randr_get_output_info(server.raw(), output, XCB_CURRENT_TIME);
    const auto reply = owned(xcb_randr_get_output_info_reply(server.raw(), question, nullptr));
    if (!reply)
        return false;
    const std::string_view name(reinterpret_cast<const char*>(xcb_randr_get_output_info_name(reply.get())),
                                static_cast<std::size_t>(xcb_randr_get_output_info_name_length(reply.get())));
    return name.starts_with("XWAYLAND");
}

/// An X server on Wayland: newer ones have an extension to say so, older ones name their screens.
bool isXWayland(const X11Connection& server) {
    if (hasExtension(server, "XWAYLAND"))
        return true;
    if (!hasExtension(server, "RANDR"))
        return false;
    const auto question = xcb_randr_get_screen_resources_current(server.raw(), server.root());
    const auto reply = owned(xcb_randr_get_screen_resources_current_reply(server.raw(), question, nullptr));
    if (!reply)
        return false;
    const auto* const outputs = xcb_randr_get_screen_resources_current_outputs(reply.get());
    return std::any_of(outputs, outputs + reply->num_outputs,
                       [&server](xcb_randr_output_t output) { return isNamedForWayland(server, output); });
}

} // namespace

bool isWaylandSession() {
    if (isSet("WAYLAND_DISPLAY"))
        return true;
    const char* const session = std::getenv("XDG_SESSION_TYPE");
    if (session != nullptr && std::strcmp(session, "wayland") == 0)
        return true;
    const X11Connection server;
    return !server.isOpen() || isXWayland(server);
}

} // namespace brisklog
