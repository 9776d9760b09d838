// Loading, migrating and saving the store's four files.

#include "core/TimeTrackingStore.h"
#include "foundation/Calendar.h"
#include "foundation/GermanFormat.h"
#include "platform/Fatal.h"

#include <algorithm>

namespace brisklog {
namespace {

constexpr std::size_t daysKept = 14;

/// Whether it has the form 2026-11-15; we remove nothing else from the folder.
bool isDay(std::string_view name) {
    constexpr std::string_view form = "dddd-dd-dd";
    return std::ranges::equal(name, form, [](char character, char wanted) {
        return wanted == 'd' ? character >= '0' && character <= '9' : character == wanted;
    });
}

Result<Done> copy(Files& files, const std::filesystem::path& from, const std::filesystem::path& to) {
    const auto bytes = files.read(from);
    return bytes.failed() ? bytes.error() : files.replace(to, bytes.value(), Durability::leftToSystem);
}

Result<Done> removeOldDays(Files& files, const std::filesystem::path& backups) {
    auto days = files.namesIn(backups);
    std::erase_if(days, [](const std::string& name) { return !isDay(name); });
    std::ranges::sort(days, std::greater());
    for (std::size_t i = daysKept; i < days.size(); ++i)
        if (auto removed = files.removeFolder(backups / days[i]); removed.failed())
            return removed;
    return Done{};
}

/// Keeps a copy of a file that has just been loaded as "backups/DAY/NAME" in the program's state folder,
/// unless that day has one already, and removes all but the last 14 days. The program never reads them; they
/// are for a user who deleted too much. A failure only prints one line.
void keepDailyCopy(Files& files, Log& log, const Clock& clock, const std::filesystem::path& file) {
    const auto state = files.stateFolder();
    if (!state)
        return;
    const auto backups = *state / "backups";
    const std::string today = format::date(clock.now(), format::DateForm::isoDay, clock.calendar());
    const auto target = backups / today / file.filename();
    if (files.exists(target))
        return;
    auto kept = copy(files, file, target);
    if (kept.succeeded())
        kept = removeOldDays(files, backups);
    if (kept.failed())
        log.print("Error keeping daily copy: " + kept.error().description);
}

} // namespace

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
