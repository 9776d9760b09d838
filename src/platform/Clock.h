#pragma once

#include "foundation/Date.h"

namespace brisklog {

class Calendar;

/// The only source of "now" and of the user's calendar.
class Clock {
public:
    virtual ~Clock() = default;

    /// The current time of the wall clock. It may jump forwards or backwards when the user sets the clock.
    [[nodiscard]] virtual Date now() const = 0;

    /// The user's calendar. Must be fetched again whenever something is shown or filed, though not for every
    /// row: the time zone may change while the program runs.
    [[nodiscard]] virtual Calendar calendar() const = 0;
};

} // namespace brisklog
