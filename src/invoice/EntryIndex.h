#pragma once

#include "core/Project.h"

#include <optional>
#include <unordered_map>
#include <vector>

namespace brisklog {

class TimeTrackingStore;

/// A time entry with the project it lies in. Both are valid until the store's projects change.
struct EntryInfo {
    const TimeEntry* entry;
    const Project* project;
};

/// Finds entries by their ids, in whichever project they lie by now. All entries are gone through once, not
/// once for every question, and again only when the projects have changed.
class EntryIndex {
public:
    explicit EntryIndex(const TimeTrackingStore& timeStore) : m_timeStore(timeStore) {}

    /// The entries with one of these ids, in the store's order, each once; ids that no entry has are skipped.
    [[nodiscard]] std::vector<EntryInfo> find(const std::vector<Uuid>& ids);

private:
    void synchronise();

    const TimeTrackingStore& m_timeStore;
    std::vector<EntryInfo> m_entries;
    /// Places in `m_entries`. A damaged file may hold several entries with the same id.
    std::unordered_multimap<Uuid, std::size_t> m_places;
    std::optional<std::uint64_t> m_revision;
};

} // namespace brisklog
