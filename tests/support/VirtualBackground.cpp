#include "support/VirtualBackground.h"

#include <algorithm>

namespace brisklog::test {

class VirtualBackground::Task final : public BackgroundTask {
public:
    explicit Task(std::shared_ptr<Assignment> assignment) : m_assignment(std::move(assignment)) {}

private:
    std::shared_ptr<Assignment> m_assignment;
};

std::unique_ptr<BackgroundTask> VirtualBackground::run(std::function<void()> work,
                                                       std::function<void()> finished) {
    const auto assignment = std::make_shared<Assignment>(Assignment{std::move(work), std::move(finished)});
    m_waiting.push_back(assignment);
    return std::make_unique<Task>(assignment);
}

std::shared_ptr<VirtualBackground::Assignment> VirtualBackground::next() {
    std::shared_ptr<Assignment> assignment;
    while (!m_waiting.empty() && !assignment) {
        assignment = m_waiting.front().lock();
        m_waiting.pop_front();
    }
    begun += assignment ? 1 : 0;
    return assignment;
}

bool VirtualBackground::runNext() {
    const auto assignment = next();
    if (!assignment)
        return false;
    assignment->work();
    assignment->finished();
    return true;
}

void VirtualBackground::runAll() {
    while (runNext()) {
    }
}

void VirtualBackground::runWithoutDelivering() {
    if (const auto assignment = next()) {
        assignment->work();
        m_done = assignment;
    }
}

void VirtualBackground::deliver() {
    if (const auto assignment = m_done.lock())
        assignment->finished();
}

std::size_t VirtualBackground::waiting() const {
    return static_cast<std::size_t>(
        std::ranges::count_if(m_waiting, [](const auto& each) { return !each.expired(); }));
}

} // namespace brisklog::test
