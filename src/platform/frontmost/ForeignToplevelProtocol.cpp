#include "platform/frontmost/ForeignToplevelProtocol.h"

#include <array>

namespace brisklog::foreigntoplevel {
namespace {

// The interfaces of the objects in the messages, one per argument; null for plain values.
std::array<const wl_interface*, 5> plain{};
std::array<const wl_interface*, 1> newHandle{&handle};
std::array<const wl_interface*, 1> seat{&wl_seat_interface};
std::array<const wl_interface*, 1> output{&wl_output_interface};
std::array<const wl_interface*, 5> surfaceAndRectangle{&wl_surface_interface};

constexpr std::array<wl_message, 1> managerRequests{{{"stop", "", plain.data()}}};

constexpr std::array<wl_message, 2> managerEvents{{
    {"toplevel", "n", newHandle.data()},
    {"finished", "", plain.data()},
}};

constexpr std::array<wl_message, 8> handleRequests{{
    {"set_maximized", "", plain.data()},
    {"unset_maximized", "", plain.data()},
    {"set_minimized", "", plain.data()},
    {"unset_minimized", "", plain.data()},
    {"activate", "o", seat.data()},
    {"close", "", plain.data()},
    {"set_rectangle", "oiiii", surfaceAndRectangle.data()},
    {"destroy", "", plain.data()},
}};

constexpr std::array<wl_message, 7> handleEvents{{
    {"title", "s", plain.data()},
    {"app_id", "s", plain.data()},
    {"output_enter", "o", output.data()},
    {"output_leave", "o", output.data()},
    {"state", "a", plain.data()},
    {"done", "", plain.data()},
    {"closed", "", plain.data()},
}};

} // namespace

const wl_interface manager{.name = "zwlr_foreign_toplevel_manager_v1",
                           .version = version,
                           .method_count = managerRequests.size(),
                           .methods = managerRequests.data(),
                           .event_count = managerEvents.size(),
                           .events = managerEvents.data()};

const wl_interface handle{.name = "zwlr_foreign_toplevel_handle_v1",
                          .version = version,
                          .method_count = handleRequests.size(),
                          .methods = handleRequests.data(),
                          .event_count = handleEvents.size(),
                          .events = handleEvents.data()};

} // namespace brisklog::foreigntoplevel
