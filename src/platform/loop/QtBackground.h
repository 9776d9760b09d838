#pragma once

#include "platform/Background.h"

namespace brisklog {

/// A small thread pool, whose threads end when idle.
class QtBackground final : public Background {
public:
    explicit QtBackground(int threads);
    /// Waits for work in progress, but not for ever: work that hangs in the system (on a lost network drive)
    /// is abandoned.
    ~QtBackground() override;
    QtBackground(const QtBackground&) = delete;
    QtBackground& operator=(const QtBackground&) = delete;

    [[nodiscard]] std::unique_ptr<BackgroundTask> run(std::function<void()> work,
                                                      std::function<void()> finished) override;

private:
    struct Threads;

    std::unique_ptr<Threads> m_threads;
};

} // namespace brisklog
