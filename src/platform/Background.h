#pragma once

#include <functional>
#include <memory>
#include <optional>
#include <utility>

namespace brisklog {

/// A task running in the background. Destroying it, at any time, cancels it.
class BackgroundTask {
public:
    virtual ~BackgroundTask() = default;
};

/// Runs work that would keep the user waiting on threads other than the main thread.
class Background {
public:
    virtual ~Background() = default;

    /// Runs `work` on another thread and then `finished` on the main thread, never before this returns. Work
    /// that is cancelled in time never starts; work in progress runs to its end, but `finished` is then not
    /// called. Both closures may be destroyed on either thread.
    [[nodiscard]] virtual std::unique_ptr<BackgroundTask> run(std::function<void()> work,
                                                              std::function<void()> finished) = 0;
};

/// Computes a value in the background and hands it to the main thread.
template <class T>
[[nodiscard]] std::unique_ptr<BackgroundTask> computeIn(Background& background, std::function<T()> compute,
                                                        std::function<void(T)> deliver) {
    const auto result = std::make_shared<std::optional<T>>();
    return background.run([result, compute = std::move(compute)] { result->emplace(compute()); },
                          [result, deliver = std::move(deliver)] { deliver(std::move(**result)); });
}

} // namespace brisklog
