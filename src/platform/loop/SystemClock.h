#pragma once

#include "platform/Clock.h"

namespace brisklog {

/// The machine's wall clock and the user's own calendar.
class SystemClock final : public Clock {
public:
    [[nodiscard]] Date now() const override;
    /// Reads the system's settings each time, which takes a few microseconds.
    [[nodiscard]] Calendar calendar() const override;
};

} // namespace brisklog
