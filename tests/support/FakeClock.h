#pragma once

#include "platform/Clock.h"

namespace brisklog::test {

inline constexpr TimeInterval hour = secondsPerHour;
/// The length of most days.
inline constexpr TimeInterval fullDay = 24 * hour;

/// A clock that stands still until it is told otherwise. It starts on 15 November 2026, 09:00:00 UTC.
class FakeClock final : public Clock {
public:
    [[nodiscard]] Date now() const override { return m_now; }

    void set(Date now) { m_now = now; }

    void advance(TimeInterval seconds) { m_now = m_now.addingSeconds(seconds); }

private:
    Date m_now{816426000};
};

} // namespace brisklog::test
