#pragma once

#include "core/Customer.h"
#include "core/Project.h"
#include "foundation/Observable.h"
#include "platform/Clock.h"
#include "platform/JsonFile.h"
#include "platform/RunLoop.h"
#include "platform/UserDefaults.h"

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <unordered_map>
#include <vector>

namespace brisklog {

/// A text block kept for the notes of later invoices.
struct SavedNote {
    Uuid id;
    /// The title shown in the menu.
    std::string name;
    std::string content;

    bool operator==(const SavedNote&) const = default;
};

constexpr auto jsonFields(std::type_identity<SavedNote>) {
    return std::tuple{json::field<&SavedNote::id>("id"), json::field<&SavedNote::name>("name"),
                      json::field<&SavedNote::content>("content")};
}

/// What is kept of an invoice once it has been issued.
struct ArchivedInvoice {
    Uuid id;
    /// As printed, possibly empty.
    std::string invoiceNumber;
    Date date;
    /// Absent when the invoice was issued without a customer.
    std::optional<std::string> customerName;
    /// The time entries it covers.
    std::vector<Uuid> entryIDs;

    bool operator==(const ArchivedInvoice&) const = default;
};

constexpr auto jsonFields(std::type_identity<ArchivedInvoice>) {
    return std::tuple{json::field<&ArchivedInvoice::id>("id"),
                      json::field<&ArchivedInvoice::invoiceNumber>("invoiceNumber"),
                      json::field<&ArchivedInvoice::date>("date"),
                      json::field<&ArchivedInvoice::customerName>("customerName"),
                      json::field<&ArchivedInvoice::entryIDs>("entryIDs")};
}

/// The outside world as the store needs it.
struct StorePlatform {
    Files& files;
    UserDefaults& userDefaults;
    Clock& clock;
    RunLoop& runLoop;
    Log& log;
};

/// Owns all working data: projects with their entries, running timers, customers, saved notes, issued
/// invoices. Every operation that changes data writes the whole collection to its file before it returns; if
/// that fails, one line is printed and the data stays in memory. Unknown identifiers and indices out of range
/// are ignored. The store announces itself once a second, so that running durations are redrawn.
class TimeTrackingStore final : public ObservableObject {
public:
    using ActiveEntries = std::unordered_map<Uuid, ActiveEntryState>;

    /// A published value that anyone may read and observe but only the store may write.
    template <class T>
    class Owned final : private Published<T> {
    public:
        using Published<T>::Published;
        using Published<T>::get;
        using Published<T>::operator const T&;
        using Published<T>::operator->;
        using Published<T>::operator*;
        using Published<T>::revision;

    private:
        friend TimeTrackingStore;
        // Not part of the program: tests and benchmarks set up the state of a store with it.
        template <class Value>
        friend Published<Value>& writable(Owned<Value>& value);

        using Published<T>::operator=;
    };

    /// Cleans up the user defaults, loads the four files, provides the default project and starts the
    /// one-second timer. Stops the program when there is no documents folder.
    explicit TimeTrackingStore(const StorePlatform& platform);

    /// In the order in which they were created.
    Owned<std::vector<Project>> projects{*this};
    /// Index into `projects`, set by screens; starts at 0 and is never written to a file.
    Published<int> selectedProjectIndex{*this, 0};
    /// Running and paused timers by entry id; never written to a file.
    Owned<ActiveEntries> activeEntries{*this};
    Owned<std::vector<Customer>> customers{*this};
    Owned<std::vector<SavedNote>> savedNotes{*this};
    /// Oldest first.
    Owned<std::vector<ArchivedInvoice>> archivedInvoices{*this};

    // Projects

    /// The selected project. Creates and saves the default project when there are no projects, and selects
    /// the first one when the index is out of range.
    const Project& currentProject();
    void addProject(const std::string& name, std::optional<double> hourlyRate);
    void updateProject(int index, const std::string& name, std::optional<double> hourlyRate);
    void deleteProject(int index);
    /// Empties the project's entry list.
    void resetProject(int index);
    /// Replaces all projects by the default project and drops all timers; customers, notes and archive stay.
    void resetAllData();
    void addManualEntry(const Uuid& projectId, const TimeEntry& entry);
    void deleteEntry(const Uuid& projectId, const Uuid& entryId);
    void markEntriesInvoiced(const Uuid& projectId, const std::vector<Uuid>& entryIds);

    // Timers

    /// Starts a timer for the current project; the name is used as it is, even if empty.
    void startTracking(const std::string& taskName);
    /// Pausing a paused timer deliberately restarts its pause.
    void pauseTracking(const Uuid& entryId);
    void resumeTracking(const Uuid& entryId);
    /// Turns the timer into an entry of its project, from the first start to now: pauses are deliberately not
    /// deducted and nothing is rounded. The entry of a project that no longer exists is dropped.
    void stopTracking(const Uuid& entryId);

    // Customers, notes, archive

    void addCustomer(const Customer& customer);
    /// Replaces the customer with the same id.
    void updateCustomer(const Customer& customer);
    void deleteCustomer(int index);
    void addSavedNote(const std::string& name, const std::string& content);
    void deleteSavedNote(const Uuid& id);
    void addArchivedInvoice(const std::string& number, const std::optional<std::string>& customer,
                            const std::vector<Uuid>& entryIds);
    /// The entries it covers stay invoiced.
    void deleteArchivedInvoice(const Uuid& id);

    void saveProjects();
    void saveCustomers();
    void saveSavedNotes();

private:
    struct StoreFiles {
        JsonFile<std::vector<Project>> projects;
        JsonFile<std::vector<Customer>> customers;
        JsonFile<std::vector<SavedNote>> savedNotes;
        JsonFile<std::vector<ArchivedInvoice>> archivedInvoices;
    };

    static StoreFiles filesIn(const std::optional<std::filesystem::path>& documentsFolder);

    void loadProjects();
    void loadCustomers();
    void loadSavedNotes();
    void loadArchivedInvoices();
    void migrateProjectsFromUserDefaults();
    void migrateCustomersFromUserDefaults();
    void migrateSavedNotesFromUserDefaults();
    void saveArchivedInvoices();

    template <class T>
    bool load(const JsonFile<T>& file, Published<T>& collection, const char* what);
    template <class T>
    bool migrate(const char* key, Published<T>& collection);
    template <class T>
    void save(const JsonFile<T>& file, const T& collection, const char* what);

    [[nodiscard]] Project defaultProject() const;
    [[nodiscard]] bool isProjectIndex(int index) const;
    /// Applies a change to the first project with that id; false when there is none.
    bool changeProject(const Uuid& projectId, const std::function<void(Project&)>& change);
    /// Applies a change to the timer; does nothing when there is none.
    template <class Change>
    void changeTimer(const Uuid& entryId, Change change);

    StorePlatform m_platform;
    StoreFiles m_files;
    std::unique_ptr<Timer> m_timer;
};

} // namespace brisklog
