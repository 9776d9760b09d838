#include "invoice/EntryIndex.h"

#include "core/TimeTrackingStore.h"

#include <algorithm>

namespace brisklog {
namespace {

std::size_t entryCount(const std::vector<Project>& projects) {
    std::size_t count = 0;
    for (const Project& project : projects)
        count += project.entries.size();
    return count;
}

} // namespace

void EntryIndex::synchronise() {
    if (m_revision == m_timeStore.projects.revision())
        return;
    m_revision = m_timeStore.projects.revision();
    m_entries.clear();
    m_places.clear();
    const std::size_t count = entryCount(m_timeStore.projects);
    m_entries.reserve(count);
    m_places.reserve(count);
    for (const Project& project : m_timeStore.projects.get())
        for (const TimeEntry& entry : project.entries) {
            m_places.emplace(entry.id, m_entries.size());
            m_entries.push_back({&entry, &project});
        }
}

std::vector<EntryInfo> EntryIndex::find(const std::vector<Uuid>& ids) {
    synchronise();
    std::vector<std::size_t> places;
    for (const Uuid& id : ids) {
        const auto [first, last] = m_places.equal_range(id);
        for (auto found = first; found != last; ++found)
            places.push_back(found->second);
    }
    std::ranges::sort(places);
    places.erase(std::unique(places.begin(), places.end()), places.end());
    std::vector<EntryInfo> infos;
    infos.reserve(places.size());
    for (const std::size_t place : places)
        infos.push_back(m_entries[place]);
    return infos;
}

} // namespace brisklog
