#pragma once

#include "foundation/Date.h"

namespace brisklog {

class Calendar;

/// The one source of "now", and of how the user counts time.
class Clock {
public:
    virtual ~Clock() = default;

    /// The present moment of the wall clock. It may jump, forwards and backwards, when the user sets it.
    [[nodiscard]] virtual Date now() const = 0;

    /// The user's calendar. To be asked anew whenever something is shown or filed, and not for every row: who
    /// travels changes the time zone while the program runs.
    [[nodiscard]] virtual Calendar calendar() const = 0;
};

} // namespace brisklog
