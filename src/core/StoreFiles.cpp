// Loading, migrating and saving the store's four files.

#include "core/DailyCopy.h"
#include "core/TimeTrackingStore.h"
#include "platform/Fatal.h"

namespace brisklog {

TimeTrackingStore::StoreFiles
TimeTrackingStore::filesIn(const std::optional<std::filesystem::path>& documents) {
    if (!documents)
        stopProgram("no documents folder: HOME is not set");
    // The archive is deliberately written without indentation, unlike the other three.
    return {.projects = {*documents / "projects.json", json::Layout::pretty, Durability::throughToMedium},
            .customers = {*documents / "customers.json", json::Layout::pretty, Durability::throughToMedium},
            .savedNotes = {*documents / "savedNotes.json", json::Layout::pretty, Durability::throughToMedium},
            .archivedInvoices = {*documents / "archivedInvoices.json", json::Layout::compact,
                                 Durability::throughToMedium}};
}

/// False when the file exists but could not be loaded.
template <class T>
bool TimeTrackingStore::load(const JsonFile<T>& file, Published<T>& collection, const char* what) {
    if (!m_platform.files.exists(file.path))
        return true;
    auto loaded = file.load(m_platform.files, m_platform.log);
    if (loaded.failed()) {
        m_platform.log.print(std::string("Error loading ") + what + ": " + loaded.error().description);
        return false;
    }
    keepDailyCopy(m_platform.files, m_platform.log, m_platform.clock, file.path);
    collection = std::move(loaded).value();
    return true;
}

void TimeTrackingStore::loadProjects() {
    if (!load(m_files.projects, projects, "projects"))
        migrateProjectsFromUserDefaults();
}

void TimeTrackingStore::loadCustomers() {
    if (!load(m_files.customers, customers, "customers"))
        migrateCustomersFromUserDefaults();
}

void TimeTrackingStore::loadSavedNotes() {
    if (!load(m_files.savedNotes, savedNotes, "saved notes"))
        migrateSavedNotesFromUserDefaults();
}

void TimeTrackingStore::loadArchivedInvoices() {
    load(m_files.archivedInvoices, archivedInvoices, "archived invoices");
}

/// Takes the collection over from the user defaults; false when there is nothing that can be decoded. In
/// practice the earlier clean-up has already removed these keys; that order is deliberate.
template <class T>
bool TimeTrackingStore::migrate(const char* key, Published<T>& collection) {
    const auto data = dataValue(m_platform.userDefaults, key);
    if (!data)
        return false;
    auto decoded = json::decode<T>(*data);
    if (decoded.failed())
        return false;
    collection = std::move(decoded).value();
    return true;
}

void TimeTrackingStore::migrateProjectsFromUserDefaults() {
    if (!migrate("timeProjects", projects))
        return;
    saveProjects();
    m_platform.userDefaults.removeValue("timeProjects");
}

void TimeTrackingStore::migrateCustomersFromUserDefaults() {
    if (!migrate("timeCustomers", customers))
        return;
    saveCustomers();
    m_platform.userDefaults.removeValue("timeCustomers");
}

void TimeTrackingStore::migrateSavedNotesFromUserDefaults() {
    if (!migrate("savedNotes", savedNotes))
        return;
    saveSavedNotes();
    m_platform.userDefaults.removeValue("savedNotes");
}

template <class T>
void TimeTrackingStore::save(const JsonFile<T>& file, const T& collection, const char* what) {
    if (const auto saved = file.save(m_platform.files, collection); saved.failed())
        m_platform.log.print(std::string("Error saving ") + what + ": " + saved.error().description);
}

void TimeTrackingStore::saveProjects() { save(m_files.projects, projects.get(), "projects"); }

void TimeTrackingStore::saveCustomers() { save(m_files.customers, customers.get(), "customers"); }

void TimeTrackingStore::saveSavedNotes() { save(m_files.savedNotes, savedNotes.get(), "notes"); }

void TimeTrackingStore::saveArchivedInvoices() {
    save(m_files.archivedInvoices, archivedInvoices.get(), "archived invoices");
}

} // namespace brisklog
