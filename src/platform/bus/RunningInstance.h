#pragma once

#include <functional>
#include <memory>

namespace brisklog {

/// Makes this process reachable for a second start, under the program's name on the session bus. Without a
/// bus it is simply not reachable.
class RunningInstance {
public:
    /// `activated` is called, on the main thread, each time another start asks this one to show itself.
    explicit RunningInstance(std::function<void()> activated);
    ~RunningInstance();
    RunningInstance(const RunningInstance&) = delete;
    RunningInstance& operator=(const RunningInstance&) = delete;

    /// Asks the process that runs already to show itself. False when there is none, or it does not answer
    /// within five seconds. Needs an application object.
    [[nodiscard]] static bool activateOther();

private:
    class Service;
    std::unique_ptr<Service> m_service;
};

} // namespace brisklog
