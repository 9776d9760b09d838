#pragma once

#include "platform/RunLoop.h"
#include "support/FakeClock.h"

#include <memory>
#include <vector>

namespace brisklog::test {

/// A run loop without waiting: `advance` moves the clock and fires what falls due, in chronological order.
class VirtualRunLoop final : public RunLoop {
public:
    explicit VirtualRunLoop(FakeClock& clock) : m_clock(clock) {}

    [[nodiscard]] std::unique_ptr<Timer> repeatEvery(TimeInterval interval,
                                                     std::function<void()> action) override;
    [[nodiscard]] std::unique_ptr<Timer> runAfter(TimeInterval delay, std::function<void()> action) override;

    void advance(TimeInterval seconds);

    /// How many timers are alive and not yet spent.
    [[nodiscard]] std::size_t timerCount() const;

private:
    struct Entry {
        Date due;
        /// 0 for a timer that fires once.
        TimeInterval interval;
        std::function<void()> action;
    };

    class Handle;

    [[nodiscard]] std::unique_ptr<Timer> add(Entry entry);
    [[nodiscard]] std::shared_ptr<Entry> nextDue(Date until);

    FakeClock& m_clock;
    std::vector<std::weak_ptr<Entry>> m_entries;
};

} // namespace brisklog::test
