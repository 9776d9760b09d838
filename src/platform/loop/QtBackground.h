#pragma once

#include "platform/Background.h"

namespace brisklog {

/// A few threads of the toolkit's, which end when there is nothing to do.
class QtBackground final : public Background {
public:
    explicit QtBackground(int threads);
    /// Waits for work under way, but not for ever: what hangs in the system (a network drive that is gone) is
    /// left behind.
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
