#pragma once

#include "foundation/Observable.h"

#include <cstdint>
#include <functional>

namespace brisklog {

/// What the display server offers beyond what the toolkit exposes. This base class does nothing, for desktops
/// whose server offers none of it.
class WindowServer {
public:
    WindowServer() = default;
    virtual ~WindowServer() = default;
    WindowServer(const WindowServer&) = delete;
    WindowServer& operator=(const WindowServer&) = delete;

    /// Calls `pressed` whenever a button goes down anywhere on the screen, until the subscription ends. Only
    /// one subscription at a time, and for no longer than needed, because every press wakes the program.
    virtual Subscription watchPointer(std::function<void()> /*pressed*/) { return {}; }

    /// Calls `appeared` whenever an XEmbed tray appears, until the subscription ends. Only one subscription
    /// at a time.
    virtual Subscription watchTrays(std::function<void()> /*appeared*/) { return {}; }

    /// Whether there is an XEmbed tray now.
    [[nodiscard]] virtual bool hasTray() const { return false; }

    /// Keeps a window out of task bar and pager; to be called before each show.
    virtual void keepOutOfTaskBar(std::uint32_t /*window*/) {}
};

} // namespace brisklog
