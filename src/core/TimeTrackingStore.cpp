#include "core/TimeTrackingStore.h"

#include "core/DefaultsCleanup.h"

#include <algorithm>
#include <utility>

namespace brisklog {
namespace {

constexpr TimeInterval tickInterval = 1;
constexpr const char* defaultProjectName = "Standardprojekt";

/// Removes the first element with that id; false when there is none.
template <class T>
bool removeFirst(Published<std::vector<T>>& collection, const Uuid& id) {
    const auto found = std::ranges::find(collection.get(), id, &T::id);
    if (found == collection->end())
        return false;
    collection.mutate([found](std::vector<T>& elements) { elements.erase(found); });
    return true;
}

} // namespace

TimeTrackingStore::TimeTrackingStore(const StorePlatform& platform)
    : m_platform(platform), m_files(filesIn(platform.files.documentsFolder())) {
    cleanupUserDefaults(m_platform.userDefaults, m_platform.log);
    loadProjects();
    loadCustomers();
    loadSavedNotes();
    loadArchivedInvoices();
    // Deliberately not saved here: a first start leaves no file until there is something to keep.
    if (projects->empty())
        projects = {defaultProject()};
    m_timer = m_platform.runLoop.repeatEvery(tickInterval, [this] { announce(); });
}

Project TimeTrackingStore::defaultProject() const {
    return {.id = Uuid::generate(), .name = defaultProjectName, .hourlyRate = {}, .entries = {}};
}

bool TimeTrackingStore::isProjectIndex(int index) const {
    return index >= 0 && std::cmp_less(index, projects->size());
}

bool TimeTrackingStore::changeProject(const Uuid& projectId, const std::function<void(Project&)>& change) {
    const auto found = std::ranges::find(projects.get(), projectId, &Project::id);
    if (found == projects->end())
        return false;
    const auto index = static_cast<std::size_t>(found - projects->begin());
    projects.mutate([&](std::vector<Project>& all) { change(all[index]); });
    return true;
}

const Project& TimeTrackingStore::currentProject() {
    if (!isProjectIndex(selectedProjectIndex)) {
        const bool wasEmpty = projects->empty();
        if (wasEmpty)
            projects = {defaultProject()};
        selectedProjectIndex = 0;
        if (wasEmpty)
            saveProjects();
    }
    return projects.get()[static_cast<std::size_t>(selectedProjectIndex.get())];
}

void TimeTrackingStore::addProject(const std::string& name, std::optional<double> hourlyRate) {
    projects.mutate([&](std::vector<Project>& all) {
        all.push_back({.id = Uuid::generate(), .name = name, .hourlyRate = hourlyRate, .entries = {}});
    });
    selectedProjectIndex = static_cast<int>(projects->size()) - 1;
    saveProjects();
}

void TimeTrackingStore::updateProject(int index, const std::string& name, std::optional<double> hourlyRate) {
    if (!isProjectIndex(index))
        return;
    projects.mutate([&](std::vector<Project>& all) {
        Project& project = all[static_cast<std::size_t>(index)];
        project.name = name;
        project.hourlyRate = hourlyRate;
    });
    saveProjects();
}

void TimeTrackingStore::deleteProject(int index) {
    if (!isProjectIndex(index))
        return;
    projects.mutate([index](std::vector<Project>& all) { all.erase(all.begin() + index); });
    const int count = static_cast<int>(projects->size());
    if (selectedProjectIndex >= count)
        selectedProjectIndex = std::max(count, 1) - 1;
    saveProjects();
}

void TimeTrackingStore::resetProject(int index) {
    if (!isProjectIndex(index))
        return;
    projects.mutate(
        [index](std::vector<Project>& all) { all[static_cast<std::size_t>(index)].entries.clear(); });
    saveProjects();
}

void TimeTrackingStore::resetAllData() {
    projects = {defaultProject()};
    selectedProjectIndex = 0;
    activeEntries = ActiveEntries();
    saveProjects();
}

void TimeTrackingStore::addManualEntry(const Uuid& projectId, const TimeEntry& entry) {
    if (changeProject(projectId, [&entry](Project& project) { project.entries.push_back(entry); }))
        saveProjects();
}

void TimeTrackingStore::deleteEntry(const Uuid& projectId, const Uuid& entryId) {
    const auto project = std::ranges::find(projects.get(), projectId, &Project::id);
    if (project == projects->end())
        return;
    const auto entry = std::ranges::find(project->entries, entryId, &TimeEntry::id);
    if (entry == project->entries.end())
        return;
    changeProject(projectId, [entry](Project& changed) { changed.entries.erase(entry); });
    saveProjects();
}

void TimeTrackingStore::markEntriesInvoiced(const Uuid& projectId, const std::vector<Uuid>& entryIds) {
    const bool found = changeProject(projectId, [&entryIds](Project& project) {
        // Only the first entry with an id counts; the map avoids a linear search for each of thousands of
        // ids.
        std::unordered_map<Uuid, TimeEntry*> firstById;
        for (TimeEntry& entry : project.entries)
            firstById.try_emplace(entry.id, &entry);
        for (const Uuid& id : entryIds)
            if (const auto entry = firstById.find(id); entry != firstById.end())
                entry->second->isInvoiced = true;
    });
    if (found)
        saveProjects();
}

void TimeTrackingStore::addCustomer(const Customer& customer) {
    customers.mutate([&customer](std::vector<Customer>& all) { all.push_back(customer); });
    saveCustomers();
}

void TimeTrackingStore::updateCustomer(const Customer& customer) {
    const auto found = std::ranges::find(customers.get(), customer.id, &Customer::id);
    if (found == customers->end())
        return;
    const auto index = static_cast<std::size_t>(found - customers->begin());
    customers.mutate([&](std::vector<Customer>& all) { all[index] = customer; });
    saveCustomers();
}

void TimeTrackingStore::deleteCustomer(int index) {
    if (index < 0 || std::cmp_greater_equal(index, customers->size()))
        return;
    customers.mutate([index](std::vector<Customer>& all) { all.erase(all.begin() + index); });
    saveCustomers();
}

void TimeTrackingStore::addSavedNote(const std::string& name, const std::string& content) {
    savedNotes.mutate([&](std::vector<SavedNote>& all) {
        all.push_back({.id = Uuid::generate(), .name = name, .content = content});
    });
    saveSavedNotes();
}

void TimeTrackingStore::deleteSavedNote(const Uuid& id) {
    if (removeFirst(savedNotes, id))
        saveSavedNotes();
}

void TimeTrackingStore::addArchivedInvoice(const std::string& number,
                                           const std::optional<std::string>& customer,
                                           const std::vector<Uuid>& entryIds) {
    archivedInvoices.mutate([&](std::vector<ArchivedInvoice>& all) {
        all.push_back({.id = Uuid::generate(),
                       .invoiceNumber = number,
                       .date = m_platform.clock.now(),
                       .customerName = customer,
                       .entryIDs = entryIds});
    });
    saveArchivedInvoices();
}

void TimeTrackingStore::deleteArchivedInvoice(const Uuid& id) {
    if (removeFirst(archivedInvoices, id))
        saveArchivedInvoices();
}

} // namespace brisklog
