#pragma once

#include "foundation/Date.h"

#include <functional>
#include <memory>

namespace brisklog {

/// A timer that fires for as long as it exists; destroying it, even while it fires, stops it.
class Timer {
public:
    virtual ~Timer() = default;
};

/// The event loop of the main thread.
class RunLoop {
public:
    virtual ~RunLoop() = default;

    /// Calls `action` every `interval` seconds, the first time after one interval. Missed firings (while the
    /// machine slept) are not made up for.
    [[nodiscard]] virtual std::unique_ptr<Timer> repeatEvery(TimeInterval interval,
                                                             std::function<void()> action) = 0;

    /// Calls `action` once, `delay` seconds from now, unless the timer is destroyed before.
    [[nodiscard]] virtual std::unique_ptr<Timer> runAfter(TimeInterval delay,
                                                          std::function<void()> action) = 0;
};

} // namespace brisklog
