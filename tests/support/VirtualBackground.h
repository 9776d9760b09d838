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

    /// Does the work that has waited longest, and hands it over unless it is given up meanwhile; false when
    /// nothing waits.
    bool runNext();

    void runAll();

    /// Does the work that has waited longest but keeps it back: it is handed over at the next `deliver`.
    void workOnly();
    void deliver();

    /// How much waits that nobody has given up.
    [[nodiscard]] std::size_t waiting() const;

    /// How much was begun so far.
    std::size_t begun = 0;

private:
    struct Assignment {
        std::function<void()> work;
        std::function<void()> finished;
    };

    class Task;

    [[nodiscard]] std::shared_ptr<Assignment> next();

    /// A task that is destroyed takes its assignment along.
    std::deque<std::weak_ptr<Assignment>> m_waiting;
    std::weak_ptr<Assignment> m_done;
};

} // namespace brisklog::test
