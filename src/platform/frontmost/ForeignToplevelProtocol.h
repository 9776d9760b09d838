#pragma once

#include <cstdint>
#include <wayland-client.h>

/// The protocol "wlr-foreign-toplevel-management-unstable-v1", version 1, as far as listening requires it: no
/// package ships its description.
namespace brisklog::foreigntoplevel {

constexpr std::uint32_t version = 1;

/// Announces windows.
extern const wl_interface manager;

/// One window.
extern const wl_interface handle;

enum class ManagerEvent : std::uint32_t {
    toplevel, ///< a new handle
    finished,
};

/// What a handle reports takes effect at the next `done`.
enum class HandleEvent : std::uint32_t {
    title,
    applicationId, ///< a text
    outputEnter,
    outputLeave,
    state, ///< an array of State
    done,
    closed,
};

enum class State : std::uint32_t { maximized, minimized, activated };

/// The number of the handle's "destroy" request.
constexpr std::uint32_t destroyHandle = 7;

} // namespace brisklog::foreigntoplevel
