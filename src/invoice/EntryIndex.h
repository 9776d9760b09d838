#pragma once

#include "core/Project.h"

#include <optional>
#include <unordered_map>
#include <vector>

namespace brisklog {

class TimeTrackingStore;

/// A time entry with the project it belongs to. Both are valid until the store's projects change.
struct EntryInfo {
    const TimeEntry* entry;
    const Project* project;
};

/// Finds entries by id, in whichever project they are now. The index is built in one pass over all entries
/// and rebuilt only when the projects have changed.
class EntryIndex {
public:
    explicit EntryIndex(const TimeTrackingStore& timeStore) : m_timeStore(timeStore) {}

    /// The entries with these ids, in the store's order and without duplicates; unknown ids are skipped.
    [[nodiscard]] std::vector<EntryInfo> find(const std::vector<Uuid>& ids);

private:
    void synchronise();

    const TimeTrackingStore& m_timeStore;
    std::vector<EntryInfo> m_entries;
    /// Indices into `m_entries`. A damaged file may hold several entries with the same id.
    std::unordered_multimap<Uuid, std::size_t> m_places;
    std::optional<std::uint64_t> m_revision;
};

} // namespace brisklog
