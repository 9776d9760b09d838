#pragma once

#include "foundation/Observable.h"

#include <cstdint>
#include <functional>

namespace brisklog {

/// What the server that shows our windows tells and does beyond what the toolkit passes on. This one tells
/// and does nothing, for desktops whose server has none of it to offer.
class WindowServer {
public:
    WindowServer() = default;
    virtual ~WindowServer() = default;
    WindowServer(const WindowServer&) = delete;
    WindowServer& operator=(const WindowServer&) = delete;

    /// Calls `pressed` whenever a button goes down anywhere on the screen, until the subscription ends; one
    /// at a time, and not longer than needed, because every press wakes the program.
    virtual Subscription watchPointer(std::function<void()> /*pressed*/) { return {}; }

    /// Calls `appeared` whenever an XEmbed tray has come, until the subscription ends; one at a time.
    virtual Subscription watchTrays(std::function<void()> /*appeared*/) { return {}; }

    /// Whether an XEmbed tray is there now.
    [[nodiscard]] virtual bool hasTray() const { return false; }

    /// Keeps a window out of task bar and pager; to be called before each show.
    virtual void keepOutOfTaskBar(std::uint32_t /*window*/) {}
};

} // namespace brisklog
