#pragma once

#include "foundation/Observable.h"

#include <cstdint>
#include <functional>
#include <string>

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

    /// Whether the toolkit knows where the pointer is. Under Wayland it remembers the last place over one of
    /// our windows, even on the X server.
    [[nodiscard]] virtual bool knowsPointer() const { return false; }

    /// Tells the desktop that the click it gave this activation token for has been answered; until then it
    /// may show a busy pointer.
    virtual void completeActivation(const std::string& /*token*/) {}

    /// Keeps a window out of task bar and pager; to be called before each show.
    virtual void keepOutOfTaskBar(std::uint32_t /*window*/) {}
};

} // namespace brisklog
