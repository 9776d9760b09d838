#pragma once

namespace brisklog {

/// Whether the desktop runs on Wayland, also when this program is shown through its X server.
[[nodiscard]] bool isWaylandSession();

} // namespace brisklog
