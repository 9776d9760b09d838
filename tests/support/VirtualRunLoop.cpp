#include "support/VirtualRunLoop.h"

#include <limits>

namespace brisklog::test {
namespace {

constexpr Date never{std::numeric_limits<double>::infinity()};

} // namespace

class VirtualRunLoop::Handle final : public Timer {
public:
    explicit Handle(std::shared_ptr<Entry> entry) : m_entry(std::move(entry)) {}

private:
    std::shared_ptr<Entry> m_entry;
};

std::unique_ptr<Timer> VirtualRunLoop::add(Entry entry) {
    auto shared = std::make_shared<Entry>(std::move(entry));
    m_entries.push_back(shared);
    return std::make_unique<Handle>(shared);
}

std::unique_ptr<Timer> VirtualRunLoop::repeatEvery(TimeInterval interval, std::function<void()> action) {
    return add({m_clock.now().addingSeconds(interval), interval, std::move(action)});
}

std::unique_ptr<Timer> VirtualRunLoop::runAfter(TimeInterval delay, std::function<void()> action) {
    return add({m_clock.now().addingSeconds(delay), 0, std::move(action)});
}

std::shared_ptr<VirtualRunLoop::Entry> VirtualRunLoop::nextDue(Date until) {
    std::shared_ptr<Entry> next;
    for (const auto& weak : m_entries)
        if (auto entry = weak.lock(); entry && entry->due <= until && (!next || entry->due < next->due))
            next = std::move(entry);
    return next;
}

void VirtualRunLoop::advance(TimeInterval seconds) {
    const Date until = m_clock.now().addingSeconds(seconds);
    while (const auto entry = nextDue(until)) {
        m_clock.set(entry->due);
        entry->due = entry->interval > 0 ? entry->due.addingSeconds(entry->interval) : never;
        entry->action();
    }
    m_clock.set(until);
    std::erase_if(m_entries, [](const auto& weak) { return weak.expired(); });
}

std::size_t VirtualRunLoop::timerCount() const {
    std::size_t count = 0;
    for (const auto& weak : m_entries)
        if (const auto entry = weak.lock(); entry && entry->due < never)
            ++count;
    return count;
}

} // namespace brisklog::test
