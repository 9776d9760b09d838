#pragma once

#include "foundation/Date.h"

namespace brisklog {

/// The one source of "now".
class Clock {
public:
    virtual ~Clock() = default;

    /// The present moment of the wall clock. It may jump, forwards and backwards, when the user sets it.
    [[nodiscard]] virtual Date now() const = 0;
};

} // namespace brisklog
