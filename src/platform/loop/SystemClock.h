#pragma once

#include "platform/Clock.h"

namespace brisklog {

/// The machine's wall clock.
class SystemClock final : public Clock {
public:
    [[nodiscard]] Date now() const override;
};

} // namespace brisklog
