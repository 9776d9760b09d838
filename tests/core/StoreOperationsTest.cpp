#include "StoreFixture.h"
#include "support/WritableStore.h"

#include <sys/stat.h>

namespace brisklog::test {
namespace {

class StoreOperations : public StoreTest {
protected:
    /// Files written since the last look.
    Names written() { return std::exchange(files.written, {}); }

    std::unique_ptr<TimeTrackingStore> store = startQuietly();
    const Names projectsOnly{"projects.json"};
    const Names nothing{};
};

// Projects

TEST_F(StoreOperations, addedProjectIsAppendedSelectedAndSaved) {
    store->addProject("A", 85.5);
    store->addProject("B", std::nullopt);
    EXPECT_EQ(projectNames(*store), (Names{"Standardprojekt", "A", "B"}));
    EXPECT_EQ(store->projects.get()[1].hourlyRate, 85.5);
    EXPECT_EQ(store->projects.get()[2].hourlyRate, std::nullopt);
    EXPECT_NE(store->projects.get()[1].id, store->projects.get()[2].id);
    EXPECT_EQ(store->selectedProjectIndex, 2);
    EXPECT_EQ(written(), (Names{"projects.json", "projects.json"}));
}

TEST_F(StoreOperations, updatedProjectKeepsItsEntriesAndIdentity) {
    const Uuid id = store->projects->front().id;
    store->addManualEntry(id, entryFrom(0, 60));
    store->updateProject(0, "Neu", 50);
    EXPECT_EQ(store->projects->front().id, id);
    EXPECT_EQ(store->projects->front().name, "Neu");
    EXPECT_EQ(store->projects->front().hourlyRate, 50);
    EXPECT_EQ(store->projects->front().entries.size(), 1U);
    store->updateProject(0, "", std::nullopt);
    EXPECT_EQ(store->projects->front().name, "");
    EXPECT_EQ(store->projects->front().hourlyRate, std::nullopt);
}

TEST_F(StoreOperations, deletingTheSelectedLastOfThreeSelectsTheNewLast) {
    store->addProject("A", {});
    store->addProject("B", {});
    ASSERT_EQ(store->selectedProjectIndex, 2);
    store->deleteProject(2);
    EXPECT_EQ(projectNames(*store), (Names{"Standardprojekt", "A"}));
    EXPECT_EQ(store->selectedProjectIndex, 1);
}

TEST_F(StoreOperations, deletingTheOnlyProjectLeavesTheListEmptyAndTheIndexZero) {
    store->deleteProject(0);
    EXPECT_TRUE(store->projects->empty());
    EXPECT_EQ(store->selectedProjectIndex, 0);
    EXPECT_EQ(written(), projectsOnly);
    EXPECT_EQ(readFile(file("projects.json")), "[]");
}

TEST_F(StoreOperations, deletingAnEarlierProjectKeepsAValidIndexAsItIs) {
    store->addProject("A", {});
    store->addProject("B", {});
    store->addProject("C", {});
    store->selectedProjectIndex = 1;
    store->deleteProject(0);
    EXPECT_EQ(store->selectedProjectIndex, 1);
    EXPECT_EQ(store->currentProject().name, "B");
}

TEST_F(StoreOperations, resetProjectLosesItsEntriesOnly) {
    store->updateProject(0, "A", 60);
    store->addManualEntry(store->projects->front().id, entryFrom(0, 60));
    store->resetProject(0);
    EXPECT_TRUE(store->projects->front().entries.empty());
    EXPECT_EQ(store->projects->front().name, "A");
    EXPECT_EQ(store->projects->front().hourlyRate, 60);
}

TEST_F(StoreOperations, resetAllDataKeepsCustomersNotesAndArchive) {
    store->addProject("A", {});
    store->startTracking("x");
    store->addCustomer(customerNamed("Muster"));
    store->addSavedNote("n", "c");
    store->addArchivedInvoice("R1", {}, {});
    const Uuid before = store->projects->front().id;
    written();

    store->resetAllData();
    EXPECT_EQ(projectNames(*store), Names{"Standardprojekt"});
    EXPECT_NE(store->projects->front().id, before);
    EXPECT_EQ(store->selectedProjectIndex, 0);
    EXPECT_TRUE(store->activeEntries->empty());
    EXPECT_EQ(store->customers->size(), 1U);
    EXPECT_EQ(store->savedNotes->size(), 1U);
    EXPECT_EQ(store->archivedInvoices->size(), 1U);
    EXPECT_EQ(written(), projectsOnly);
}

TEST_F(StoreOperations, indicesOutOfRangeChangeNothingAndWriteNothing) {
    const auto before = store->projects.revision();
    for (const int index :
         {-1, 1, 1000000, std::numeric_limits<int>::min(), std::numeric_limits<int>::max()}) {
        store->updateProject(index, "x", 1);
        store->deleteProject(index);
        store->resetProject(index);
        store->deleteCustomer(index);
    }
    EXPECT_EQ(store->projects.revision(), before);
    EXPECT_EQ(written(), nothing);
}

// The current project

TEST_F(StoreOperations, currentProjectIsTheSelectedOneAndReadingItWritesNothing) {
    store->addProject("A", {});
    written();
    EXPECT_EQ(store->currentProject().name, "A");
    store->selectedProjectIndex = 0;
    EXPECT_EQ(store->currentProject().name, "Standardprojekt");
    EXPECT_EQ(written(), nothing);
}

TEST_F(StoreOperations, currentProjectIsMadeAndSavedWhereThereIsNone) {
    store->deleteProject(0);
    store->selectedProjectIndex = 7;
    written();
    EXPECT_EQ(store->currentProject().name, "Standardprojekt");
    EXPECT_EQ(store->selectedProjectIndex, 0);
    EXPECT_EQ(written(), projectsOnly);
}

TEST_F(StoreOperations, currentProjectGoesBackToTheFirstFromAnIndexOutOfRange) {
    store->addProject("A", {});
    written();
    for (const int index : {-1, 2, 99}) {
        store->selectedProjectIndex = index;
        EXPECT_EQ(store->currentProject().name, "Standardprojekt");
        EXPECT_EQ(store->selectedProjectIndex, 0);
    }
    EXPECT_EQ(written(), nothing);
}

// Entries

TEST_F(StoreOperations, manualEntryIsAppendedUnchanged) {
    TimeEntry entry = entryFrom(5, 1);
    entry.hourlyRate = -3;
    entry.note = "";
    const Uuid project = store->projects->front().id;
    store->addManualEntry(project, entryFrom(0, 1));
    store->addManualEntry(project, entry);
    EXPECT_EQ(store->projects->front().entries.at(1), entry);
    EXPECT_EQ(written().size(), 2U);
}

TEST_F(StoreOperations, entryIsDeletedFromItsProjectOnly) {
    const Uuid project = store->projects->front().id;
    const TimeEntry first = entryFrom(0, 1);
    const TimeEntry second = entryFrom(1, 2);
    store->addManualEntry(project, first);
    store->addManualEntry(project, second);
    store->deleteEntry(project, first.id);
    EXPECT_EQ(store->projects->front().entries, std::vector{second});
    EXPECT_EQ(written().size(), 3U);
}

TEST_F(StoreOperations, onlyTheFirstEntryOfAnIdIsMeant) {
    const Uuid project = store->projects->front().id;
    TimeEntry first = entryFrom(0, 1);
    TimeEntry twin = first;
    twin.taskName = "Zwilling";
    store->addManualEntry(project, first);
    store->addManualEntry(project, twin);
    store->markEntriesInvoiced(project, {first.id});
    EXPECT_TRUE(store->projects->front().entries.at(0).isInvoiced);
    EXPECT_FALSE(store->projects->front().entries.at(1).isInvoiced);
    store->deleteEntry(project, first.id);
    EXPECT_EQ(store->projects->front().entries, std::vector{twin});
}

TEST_F(StoreOperations, onlyTheFirstProjectOfAnIdIsMeant) {
    writable(store->projects).mutate([](auto& all) { all.push_back(all.front()); });
    const Uuid project = store->projects->front().id;
    store->addManualEntry(project, entryFrom(0, 1));
    EXPECT_EQ(store->projects.get()[0].entries.size(), 1U);
    EXPECT_EQ(store->projects.get()[1].entries.size(), 0U);
}

TEST_F(StoreOperations, markingEntriesSkipsUnknownIdsAndSavesOnce) {
    const Uuid project = store->projects->front().id;
    const TimeEntry first = entryFrom(0, 1);
    const TimeEntry second = entryFrom(1, 2);
    TimeEntry invoiced = entryFrom(2, 3);
    invoiced.isInvoiced = true;
    for (const TimeEntry& entry : {first, second, invoiced})
        store->addManualEntry(project, entry);
    written();
    store->markEntriesInvoiced(project, {second.id, Uuid::generate(), second.id});
    const auto& entries = store->projects->front().entries;
    EXPECT_FALSE(entries[0].isInvoiced);
    EXPECT_TRUE(entries[1].isInvoiced);
    EXPECT_TRUE(entries[2].isInvoiced) << "marks are never removed";
    EXPECT_EQ(written(), projectsOnly);
}

TEST_F(StoreOperations, unknownIdsChangeNothingAndWriteNothing) {
    const Uuid project = store->projects->front().id;
    const TimeEntry entry = entryFrom(0, 1);
    store->addManualEntry(project, entry);
    const auto before = store->projects.revision();
    written();
    const Uuid unknown = Uuid::generate();
    store->addManualEntry(unknown, entry);
    store->deleteEntry(unknown, entry.id);
    store->deleteEntry(project, unknown);
    store->markEntriesInvoiced(unknown, {entry.id});
    store->updateCustomer(customerNamed("Niemand"));
    store->deleteSavedNote(unknown);
    store->deleteArchivedInvoice(unknown);
    store->pauseTracking(unknown);
    store->resumeTracking(unknown);
    store->stopTracking(unknown);
    EXPECT_EQ(store->projects.revision(), before);
    EXPECT_EQ(written(), nothing);
    EXPECT_TRUE(log.lines.empty());
}

// Customers, notes, archive

TEST_F(StoreOperations, customerIsAddedAtTheEndAsItIs) {
    const Customer first = customerNamed("Muster");
    const Customer second = customerNamed("Adler");
    store->addCustomer(first);
    EXPECT_EQ(written(), Names{"customers.json"});
    store->addCustomer(second);
    EXPECT_EQ(written(), Names{"customers.json"});
    EXPECT_EQ(store->customers.get(), (std::vector{first, second}));
    EXPECT_EQ(start()->customers.get(), (std::vector{first, second}));
}

TEST_F(StoreOperations, customerIsReplacedByTheOneWithItsId) {
    Customer changed = customerNamed("Muster");
    writable(store->customers) = {customerNamed("Erste"), changed, customerNamed("Letzte")};
    changed.city = "Berlin";
    store->updateCustomer(changed);
    EXPECT_EQ(store->customers.get()[1], changed);
    EXPECT_EQ(store->customers->size(), 3U);
    EXPECT_EQ(written(), Names{"customers.json"});
}

TEST_F(StoreOperations, customerIsDeletedByItsIndex) {
    const Customer kept = customerNamed("Bleibt");
    writable(store->customers) = {customerNamed("Geht"), kept};
    store->deleteCustomer(2);
    store->deleteCustomer(-1);
    EXPECT_EQ(written(), nothing);
    store->deleteCustomer(0);
    EXPECT_EQ(store->customers.get(), std::vector{kept});
    EXPECT_EQ(written(), Names{"customers.json"});
}

TEST_F(StoreOperations, notesComeAndGo) {
    store->addSavedNote("a", "1");
    store->addSavedNote("a", "2");
    EXPECT_EQ(written(), (Names{"savedNotes.json", "savedNotes.json"}));
    store->deleteSavedNote(store->savedNotes->at(0).id);
    EXPECT_EQ(store->savedNotes->size(), 1U);
    EXPECT_EQ(store->savedNotes->at(0).content, "2");
    EXPECT_EQ(written(), Names{"savedNotes.json"});
}

TEST_F(StoreOperations, invoicesAreArchivedWithTheMomentOldestFirst) {
    const std::vector ids{Uuid::generate(), Uuid::generate()};
    store->addArchivedInvoice("R1", "Blau GmbH", ids);
    clock.advance(60);
    store->addArchivedInvoice("", std::nullopt, {});
    ASSERT_EQ(store->archivedInvoices->size(), 2U);
    const ArchivedInvoice& first = store->archivedInvoices->at(0);
    EXPECT_EQ(first.invoiceNumber, "R1");
    EXPECT_EQ(first.customerName, "Blau GmbH");
    EXPECT_EQ(first.entryIDs, ids);
    EXPECT_EQ(store->archivedInvoices->at(1).date.since(first.date), 60);
    EXPECT_EQ(store->archivedInvoices->at(1).customerName, std::nullopt);
    EXPECT_EQ(written().size(), 2U);
    store->deleteArchivedInvoice(first.id);
    EXPECT_EQ(store->archivedInvoices->at(0).invoiceNumber, "");
    EXPECT_EQ(written(), Names{"archivedInvoices.json"});
}

TEST_F(StoreOperations, everyChangeIsAnnounced) {
    int told = 0;
    const Subscription subscription = store->observe([&told] { ++told; });
    const auto announces = [&](const auto& change) {
        told = 0;
        change();
        return told > 0;
    };
    EXPECT_TRUE(announces([&] { store->addProject("A", {}); }));
    EXPECT_TRUE(announces([&] { store->selectedProjectIndex = 0; }));
    EXPECT_TRUE(announces([&] { store->startTracking("x"); }));
    EXPECT_TRUE(announces([&] { store->addCustomer(customerNamed("Muster")); }));
    EXPECT_TRUE(announces([&] { store->addSavedNote("n", "c"); }));
    EXPECT_TRUE(announces([&] { store->addArchivedInvoice("R", {}, {}); }));
}

// The files

TEST_F(StoreOperations, archiveIsCompactAndTheOthersAreIndented) {
    store->updateProject(0, "A", {});
    store->addCustomer(customerNamed("Muster"));
    store->addSavedNote("n", "c");
    store->addArchivedInvoice("R", {}, {});
    EXPECT_TRUE(readFile(file("projects.json")).starts_with("[\n  {\n    \"id\": \""));
    EXPECT_TRUE(readFile(file("customers.json")).starts_with("[\n  {\n    \"id\": \""));
    EXPECT_TRUE(readFile(file("savedNotes.json")).starts_with("[\n  {\n    \"id\": \""));
    const std::string archive = readFile(file("archivedInvoices.json"));
    EXPECT_TRUE(archive.starts_with("[{\"id\":\"")) << archive;
    EXPECT_EQ(archive.find_first_of(" \n"), std::string::npos);
    EXPECT_EQ(documents(),
              (Names{"archivedInvoices.json", "customers.json", "projects.json", "savedNotes.json"}));
}

TEST_F(StoreOperations, fileOfProjectsReadsLikeThis) {
    store->updateProject(0, "Größe", 85.5);
    TimeEntry entry = entryFrom(816426000, 816427800.5);
    entry.projectId = store->projects->front().id;
    store->addManualEntry(store->projects->front().id, entry);
    const std::string project = store->projects->front().id.text();
    EXPECT_EQ(readFile(file("projects.json")), R"([
  {
    "id": ")" + project + R"(",
    "name": "Größe",
    "hourlyRate": 85.5,
    "entries": [
      {
        "id": ")" + entry.id.text() + R"(",
        "taskName": "Arbeit",
        "startTime": 816426000.0,
        "endTime": 816427800.5,
        "projectId": ")" + project + R"(",
        "isInvoiced": false
      }
    ]
  }
])");
}

TEST_F(StoreOperations, fileIsReplacedInPlaceAndShrinks) {
    store->addProject(std::string(5000, 'x'), {});

    struct stat before {};

    ASSERT_EQ(::stat(file("projects.json").c_str(), &before), 0);
    std::filesystem::create_hard_link(file("projects.json"), home.path() / "link");
    store->deleteProject(1);

    struct stat after {};

    ASSERT_EQ(::stat(file("projects.json").c_str(), &after), 0);
    EXPECT_EQ(after.st_ino, before.st_ino);
    EXPECT_LT(after.st_size, before.st_size);
    EXPECT_EQ(readFile(home.path() / "link"), readFile(file("projects.json")));
    EXPECT_EQ(documents(), Names{"projects.json"});
}

} // namespace
} // namespace brisklog::test
