#pragma once

#include "platform/RunLoop.h"

namespace brisklog {

/// The toolkit's event loop. Repeating timers may fire a few hundredths of a second early or late, so that
/// the system can combine wake-ups.
class QtRunLoop final : public RunLoop {
public:
    [[nodiscard]] std::unique_ptr<Timer> repeatEvery(TimeInterval interval,
                                                     std::function<void()> action) override;
    [[nodiscard]] std::unique_ptr<Timer> runAfter(TimeInterval delay, std::function<void()> action) override;
};

} // namespace brisklog
