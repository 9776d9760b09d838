#include "foundation/Observable.h"

#include <algorithm>

namespace brisklog {

struct ObservableObject::Registry {
    struct Entry {
        std::uint64_t id;
        std::shared_ptr<Observer> observer;
    };

    std::vector<Entry> entries;
    std::uint64_t nextId = 0;

    void remove(std::uint64_t id) {
        const auto found = std::ranges::find(entries, id, &Entry::id);
        if (found == entries.end())
            return;
        // Destroyed last: what an observer captured may in turn end subscriptions here when it is destroyed.
        const auto removed = std::move(found->observer);
        entries.erase(found);
    }
};

ObservableObject::ObservableObject() : m_registry(std::make_shared<Registry>()) {}

ObservableObject::~ObservableObject() { const auto ended = std::exchange(m_registry->entries, {}); }

Subscription ObservableObject::observe(Observer observer) {
    const std::uint64_t id = m_registry->nextId++;
    m_registry->entries.push_back({id, std::make_shared<Observer>(std::move(observer))});
    return Subscription([registry = std::weak_ptr(m_registry), id] {
        if (const auto alive = registry.lock())
            alive->remove(id);
    });
}

void ObservableObject::announce() {
    // Iterates over a copy and checks again before each call: an observer may end its own or another's
    // subscription.
    const auto registry = m_registry;
    const auto entries = registry->entries;
    for (const Registry::Entry& entry : entries)
        if (std::ranges::find(registry->entries, entry.id, &Registry::Entry::id) != registry->entries.end())
            (*entry.observer)();
}

} // namespace brisklog
