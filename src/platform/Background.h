#pragma once

#include <functional>
#include <memory>
#include <optional>
#include <utility>

namespace brisklog {

/// Something that is being done in the background. Destroying it, at any time, is the way to give it up.
class BackgroundTask {
public:
    virtual ~BackgroundTask() = default;
};

/// Does beside the main thread what would keep the user waiting.
class Background {
public:
    virtual ~Background() = default;

    /// Runs `work` on another thread and after that `finished` on the main thread, never before this returns.
    /// Given up in time, the work is never begun; work under way is done to its end, but `finished` is not
    /// called any more. Both closures may be destroyed on either thread.
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
