#pragma once

#include "platform/Background.h"

#include <deque>
#include <memory>

namespace brisklog::test {

/// A background without threads: work waits until a test asks for it.
class VirtualBackground final : public Background {
public:
    [[nodiscard]] std::unique_ptr<BackgroundTask> run(std::function<void()> work,
                                                      std::function<void()> finished) override;

    /// Does the oldest waiting work and hands it over; false when none is waiting.
    bool runNext();

    void runAll();

    /// Does the oldest waiting work but holds it back until `deliver`.
    void runWithoutDelivering();
    void deliver();

    /// How many assignments are waiting and not given up.
    [[nodiscard]] std::size_t waiting() const;

    /// How many assignments have been begun so far.
    std::size_t begun = 0;

private:
    struct Assignment {
        std::function<void()> work;
        std::function<void()> finished;
    };

    class Task;

    [[nodiscard]] std::shared_ptr<Assignment> next();

    /// Owned by their tasks: destroying a task gives up its assignment.
    std::deque<std::weak_ptr<Assignment>> m_waiting;
    std::weak_ptr<Assignment> m_done;
};

} // namespace brisklog::test
