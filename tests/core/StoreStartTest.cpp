#include "StoreFixture.h"

#include "core/DefaultsCleanup.h"
#include "support/MemoryUserDefaults.h"

namespace brisklog::test {
namespace {

namespace fs = std::filesystem;

using StoreStart = StoreTest;

constexpr const char* cleanupBegins = "Bereinige UserDefaults von großen Daten...";
constexpr const char* cleanupEnds = "UserDefaults-Bereinigung abgeschlossen";

constexpr const char* oneProject =
    R"([{"id":"0A1B2C3D-4E5F-6071-8293-A4B5C6D7E8F9","name":"Alt","entries":[]}])";

TEST_F(StoreStart, firstOneHasTheDefaultProjectInMemoryAndNoFile) {
    const auto store = start();
    EXPECT_EQ(projectNames(*store), Names{"Standardprojekt"});
    EXPECT_EQ(store->projects->front().hourlyRate, std::nullopt);
    EXPECT_EQ(store->selectedProjectIndex, 0);
    EXPECT_TRUE(store->customers->empty());
    EXPECT_TRUE(store->savedNotes->empty());
    EXPECT_TRUE(store->archivedInvoices->empty());
    EXPECT_TRUE(store->activeEntries->empty());
    EXPECT_TRUE(files.written.empty());
    EXPECT_FALSE(fs::exists(home.documents()));
    EXPECT_EQ(log.lines, (Lines{cleanupBegins, cleanupEnds}));
}

TEST_F(StoreStart, firstSavingOperationBringsTheDefaultProjectToTheFile) {
    const auto store = start();
    store->addProject("Neu", std::nullopt);
    EXPECT_EQ(documents(), Names{"projects.json"});
    EXPECT_EQ(projectNames(*start()), (Names{"Standardprojekt", "Neu"}));
}

TEST_F(StoreStart, everythingSavedIsThereAgainExceptSelectionAndTimers) {
    const Customer customer = customerNamed("Muster");
    {
        const auto store = start();
        store->addProject("Neu", 80);
        store->addManualEntry(store->projects.get()[1].id, entryFrom(0, 3600.125));
        store->startTracking("läuft");
        store->addCustomer(customer);
        store->addSavedNote("Dank", "Danke");
        store->addArchivedInvoice("R1", "Muster", {Uuid::generate()});
        EXPECT_EQ(store->selectedProjectIndex, 1);
    }
    const auto again = start();
    EXPECT_EQ(projectNames(*again), (Names{"Standardprojekt", "Neu"}));
    EXPECT_EQ(again->projects.get()[1].hourlyRate, 80);
    EXPECT_EQ(again->projects.get()[1].entries.at(0).endTime, Date{3600.125});
    EXPECT_EQ(again->customers.get(), std::vector{customer});
    EXPECT_EQ(again->savedNotes->at(0).content, "Danke");
    EXPECT_EQ(again->archivedInvoices->at(0).date, clock.now());
    EXPECT_EQ(again->selectedProjectIndex, 0);
    EXPECT_TRUE(again->activeEntries->empty());
    EXPECT_EQ(otherLines(), Lines());
}

TEST_F(StoreStart, fileWithoutProjectsGivesTheDefaultProject) {
    writeFile(file("projects.json"), "[]");
    EXPECT_EQ(projectNames(*start()), Names{"Standardprojekt"});
    EXPECT_EQ(readFile(file("projects.json")), "[]");
}

// Files that do not load

TEST_F(StoreStart, projectsThatAreNotJsonStartEmptyAndAreOverwrittenByTheNextSave) {
    writeFile(file("projects.json"), "no JSON");
    const auto store = start();
    ASSERT_EQ(otherLines().size(), 1U);
    EXPECT_TRUE(otherLines()[0].starts_with("Error loading projects: ")) << otherLines()[0];
    EXPECT_EQ(projectNames(*store), Names{"Standardprojekt"});
    EXPECT_EQ(readFile(file("projects.json")), "no JSON");
    store->startTracking("x");
    EXPECT_NE(readFile(file("projects.json")).find("Standardprojekt"), std::string::npos);
}

TEST_F(StoreStart, undecodableBytesAreRescuedBeforeAnythingOverwritesThem) {
    std::string noise = "[{\"id\":";
    for (int i = 0; i < 5000; ++i)
        noise += static_cast<char>(i * 37);
    writeFile(file("projects.json"), noise);
    const auto store = start();
    ASSERT_EQ(files.written.size(), 1U);
    EXPECT_TRUE(files.written[0].starts_with("projects-")) << files.written[0];
    EXPECT_EQ(readFile(home.state() / "rescued" / files.written[0]), noise);
    store->startTracking("x");
    EXPECT_EQ(readFile(home.state() / "rescued" / files.written[0]), noise);
}

TEST_F(StoreStart, errorNamesPathAndByte) {
    const std::string start0 = R"([{"id":"0A1B2C3D-4E5F-6071-8293-A4B5C6D7E8F9","name":"A","entries":[)"
                               R"({"id":"0A1B2C3D-4E5F-6071-8293-A4B5C6D7E8F9","taskName":"x","startTime":1)";
    writeFile(file("projects.json"), start0 + "}]}]");
    const auto store = start();
    EXPECT_EQ(otherLines(), Lines{"Error loading projects: [0].entries[0].isInvoiced: missing (byte " +
                                  std::to_string(start0.size()) + ")"});
}

TEST_F(StoreStart, entryWithoutARateLoads) {
    writeFile(
        file("projects.json"),
        R"([{"id":"0A1B2C3D-4E5F-6071-8293-A4B5C6D7E8F9","name":"A","hourlyRate":60,"entries":[)"
        R"({"id":"0A1B2C3D-4E5F-6071-8293-A4B5C6D7E8F9","taskName":"x","startTime":1,"isInvoiced":true}]}])");
    const auto store = start();
    EXPECT_EQ(store->projects->at(0).entries.at(0).hourlyRate, std::nullopt);
    EXPECT_TRUE(store->projects->at(0).entries.at(0).isInvoiced);
    EXPECT_EQ(otherLines(), Lines());
}

TEST_F(StoreStart, eachFileFailsWithItsOwnLineAndInOrder) {
    for (const char* const name :
         {"archivedInvoices.json", "savedNotes.json", "customers.json", "projects.json"})
        writeFile(file(name), "x");
    const auto store = start();
    const Lines lines = otherLines();
    ASSERT_EQ(lines.size(), 4U);
    EXPECT_TRUE(lines[0].starts_with("Error loading projects: "));
    EXPECT_TRUE(lines[1].starts_with("Error loading customers: "));
    EXPECT_TRUE(lines[2].starts_with("Error loading saved notes: "));
    EXPECT_TRUE(lines[3].starts_with("Error loading archived invoices: "));
}

TEST_F(StoreStart, oneBrokenFileLeavesTheOthersAlone) {
    writeFile(file("projects.json"), oneProject);
    writeFile(file("customers.json"), "{}");
    const auto store = start();
    EXPECT_EQ(projectNames(*store), Names{"Alt"});
    EXPECT_TRUE(store->customers->empty());
}

// The clean-up

TEST_F(StoreStart, oldKeysAreRemovedInOrderBeforeAnythingIsLoaded) {
    for (const char* const key :
         {"profile_data", "savedNotes", "activeEntries", "profile_logoData", "timeCustomers", "timeProjects"})
        defaults.setValue(key, Data{"x"});
    writeFile(file("projects.json"), "broken");
    const auto store = start();
    ASSERT_EQ(log.lines.size(), 9U);
    const std::string removing = "Removing potentially large data from UserDefaults: ";
    EXPECT_EQ((Lines(log.lines.begin(), log.lines.begin() + 8)),
              (Lines{cleanupBegins, removing + "timeProjects", removing + "timeCustomers",
                     removing + "profile_logoData", removing + "activeEntries", removing + "savedNotes",
                     removing + "profile_data", cleanupEnds}));
    EXPECT_TRUE(log.lines[8].starts_with("Error loading projects: "));
    EXPECT_TRUE(defaults.entries().empty());
}

TEST_F(StoreStart, oldKeysAreRemovedWhateverTheirType) {
    defaults.setValue("timeProjects", "text");
    defaults.setValue("activeEntries", true);
    const auto store = start();
    EXPECT_TRUE(defaults.entries().empty());
    EXPECT_EQ(log.lines.size(), 4U);
}

TEST_F(StoreStart, projectsInTheUserDefaultsAreRemovedAndNotMigrated) {
    defaults.setValue("timeProjects", Data{oneProject});
    EXPECT_EQ(projectNames(*start()), Names{"Standardprojekt"});
    EXPECT_FALSE(defaults.value("timeProjects"));
    EXPECT_TRUE(files.written.empty());
}

TEST_F(StoreStart, projectsInTheUserDefaultsAreNotMigratedForABrokenFileEither) {
    defaults.setValue("timeProjects", Data{oneProject});
    writeFile(file("projects.json"), "broken");
    EXPECT_EQ(projectNames(*start()), Names{"Standardprojekt"});
    EXPECT_EQ(readFile(file("projects.json")), "broken");
}

TEST_F(StoreStart, oversizedDataIsRemovedStrictlyAboveTheLimit) {
    defaults.setValue("profile_logo", Data{std::string(150000, 'x')});
    const auto store = start();
    EXPECT_EQ(log.lines,
              (Lines{cleanupBegins, "Removing large data (150000 bytes) from UserDefaults: profile_logo",
                     cleanupEnds}));
    EXPECT_FALSE(defaults.value("profile_logo"));
}

TEST_F(StoreStart, dataOfExactlyTheLimitIsKept) {
    defaults.setValue("profile_logo", Data{std::string(100000, 'x')});
    const auto store = start();
    EXPECT_TRUE(defaults.value("profile_logo"));
    EXPECT_EQ(log.lines.size(), 2U);
}

TEST_F(StoreStart, fourNameRulesDecideWhichOversizedDataGoes) {
    const Data large{std::string(100001, 'x')};
    for (const char* const key : {"profile_x", "timeline", "myDatabase", "allEntriesOfMine", "someOtherValue",
                                  "myprofile_x", "mytime", "data", "entries", "Time"})
        defaults.setValue(key, large);
    defaults.setValue("profile_text", std::string(200000, 'x'));
    defaults.setValue("timeNumber", 5.0);
    const auto store = start();
    Names kept;
    for (const auto& entry : defaults.entries())
        kept.push_back(entry.key);
    std::ranges::sort(kept);
    EXPECT_EQ(kept, (Names{"Time", "data", "entries", "myprofile_x", "mytime", "profile_text",
                           "someOtherValue", "timeNumber"}));
    EXPECT_EQ(log.countStartingWith("Removing large data (100001 bytes) from UserDefaults: "), 4U);
}

TEST_F(StoreStart, trackersHistoryIsKeptWhateverItsSize) {
    defaults.setValue("autoTrackingData", Data{std::string(3000000, 'x')});
    defaults.setValue("autoTrackingDataOld", Data{std::string(3000000, 'x')});
    const auto store = start();
    EXPECT_TRUE(defaults.value("autoTrackingData"));
    EXPECT_FALSE(defaults.value("autoTrackingDataOld"));
}

TEST_F(StoreStart, cleanUpWritesItsRemovalsThrough) {
    MemoryUserDefaults recorded;
    recorded.setValue("activeEntries", Data{"x"});
    cleanupUserDefaults(recorded, log);
    EXPECT_EQ(recorded.removed, Names{"activeEntries"});
    EXPECT_EQ(recorded.synchronisations, 1);
}

TEST_F(StoreStart, cleanUpRunsOncePerProcess) {
    { const auto store = start(); }
    log.lines.clear();
    defaults.setValue("activeEntries", Data{"x"});
    const auto again = start();
    EXPECT_EQ(log.lines, Lines());
    EXPECT_TRUE(defaults.value("activeEntries"));
}

// Migration: only reached by a second store in the same process, after the first one's clean-up

class StoreMigration : public StoreTest {
protected:
    StoreMigration() {
        const auto cleaned = start();
        log.lines.clear();
    }
};

TEST_F(StoreMigration, brokenFileTakesTheOlderValueOverSavesItAndRemovesTheKey) {
    writeFile(file("projects.json"), "broken");
    defaults.setValue("timeProjects", Data{oneProject});
    const auto store = start();
    EXPECT_EQ(projectNames(*store), Names{"Alt"});
    EXPECT_FALSE(defaults.value("timeProjects"));
    EXPECT_NE(readFile(file("projects.json")).find("\"Alt\""), std::string::npos);
    EXPECT_EQ(log.lines.size(), 1U);
}

TEST_F(StoreMigration, customersAndNotesLikewise) {
    const std::vector customers{customerNamed("Muster")};
    const std::vector notes{SavedNote{.id = Uuid::generate(), .name = "n", .content = "c"}};
    const auto bytes = [](const auto& records) {
        return Data{std::string(json::encode(records, json::Layout::compact).value().bytes())};
    };
    writeFile(file("customers.json"), "broken");
    writeFile(file("savedNotes.json"), "broken");
    defaults.setValue("timeCustomers", bytes(customers));
    defaults.setValue("savedNotes", bytes(notes));
    const auto store = start();
    EXPECT_EQ(store->customers.get(), customers);
    EXPECT_EQ(store->savedNotes.get(), notes);
    EXPECT_TRUE(defaults.entries().empty());
    EXPECT_EQ(json::decode<std::vector<Customer>>(readFile(file("customers.json"))).value(), customers);
    EXPECT_EQ(json::decode<std::vector<SavedNote>>(readFile(file("savedNotes.json"))).value(), notes);
}

TEST_F(StoreMigration, missingFileDoesNotAskTheUserDefaults) {
    defaults.setValue("timeProjects", Data{oneProject});
    EXPECT_EQ(projectNames(*start()), Names{"Standardprojekt"});
    EXPECT_TRUE(defaults.value("timeProjects"));
}

TEST_F(StoreMigration, olderValueThatDoesNotDecodeIsLeftAloneAndNotReported) {
    writeFile(file("projects.json"), "broken");
    defaults.setValue("timeProjects", Data{"broken too"});
    const auto store = start();
    EXPECT_EQ(projectNames(*store), Names{"Standardprojekt"});
    EXPECT_TRUE(defaults.value("timeProjects"));
    EXPECT_EQ(log.lines.size(), 1U);
    EXPECT_EQ(readFile(file("projects.json")), "broken");
}

TEST_F(StoreMigration, archiveHasNone) {
    writeFile(file("archivedInvoices.json"), "broken");
    defaults.setValue("archivedInvoices", Data{"[]"});
    const auto store = start();
    EXPECT_TRUE(defaults.value("archivedInvoices"));
    EXPECT_EQ(log.lines.size(), 1U);
}

} // namespace
} // namespace brisklog::test
