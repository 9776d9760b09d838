#pragma once

#include <functional>
#include <memory>

namespace brisklog {

/// Lets a second start reach this process under the program's name on the session bus. Without a bus it is
/// not reachable.
class RunningInstance {
public:
    /// `activated` is called, on the main thread, each time another start asks this one to show itself.
    explicit RunningInstance(std::function<void()> activated);
    ~RunningInstance();
    RunningInstance(const RunningInstance&) = delete;
    RunningInstance& operator=(const RunningInstance&) = delete;

    /// Asks the process that is already running to show itself. False when there is none or it does not
    /// answer within five seconds. Requires an application object.
    [[nodiscard]] static bool activateOther();

private:
    class Service;
    std::unique_ptr<Service> m_service;
};

} // namespace brisklog
