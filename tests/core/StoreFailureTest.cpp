#include "StoreFixture.h"
#include "support/ChildProcess.h"

#include <cstdlib>
#include <random>

namespace brisklog::test {
namespace {

namespace fs = std::filesystem;

using StoreFailure = StoreTest;

TEST_F(StoreFailure, failedSavesPrintTheirLineAndKeepTheDataInMemory) {
    const auto store = startQuietly();
    files.writesFail = true;
    store->addProject("A", {});
    store->addCustomer(customerNamed("Muster"));
    store->addSavedNote("n", "c");
    store->addArchivedInvoice("R", {}, {});
    const auto full = [this](const char* name) { return file(name).string() + ": No space left on device"; };
    EXPECT_EQ(log.lines, (Lines{"Error saving projects: " + full("projects.json"),
                                "Error saving customers: " + full("customers.json"),
                                "Error saving notes: " + full("savedNotes.json"),
                                "Error saving archived invoices: " + full("archivedInvoices.json")}));
    EXPECT_EQ(projectNames(*store), (Names{"Standardprojekt", "A"}));
    EXPECT_EQ(store->savedNotes->size(), 1U);
    EXPECT_EQ(store->archivedInvoices->size(), 1U);
}

TEST_F(StoreFailure, saveThatWorksAgainWritesEverything) {
    const auto store = startQuietly();
    files.writesFail = true;
    store->addProject("A", {});
    files.writesFail = false;
    store->addProject("B", {});
    EXPECT_EQ(projectNames(*start()), (Names{"Standardprojekt", "A", "B"}));
}

TEST_F(StoreFailure, fullDiskLeavesTheOldFileWhole) {
    SharedCounter mounted;
    const ChildEnd end = runInChild([&] {
        if (!mountSmallFileSystem(home.path(), "400k"))
            return;
        mounted.set(1);
        const auto store = startQuietly();
        store->addProject("A", {});
        const std::string before = readFile(file("projects.json"));
        store->addProject(std::string(1000000, 'x'), {});
        EXPECT_EQ(log.countStartingWith("Error saving projects: "), 1U);
        EXPECT_EQ(readFile(file("projects.json")), before);
        EXPECT_EQ(store->projects->size(), 3U);
        store->deleteProject(2);
        EXPECT_EQ(log.lines.size(), 1U);
        EXPECT_EQ(projectNames(*start()), (Names{"Standardprojekt", "A"}));
    });
    EXPECT_FALSE(end.failed);
    if (mounted.value() == 0)
        GTEST_SKIP() << "no file system may be mounted here";
}

TEST_F(StoreFailure, figureWithoutAJsonFormIsNamedAndTheFileStaysAsItWas) {
    const auto store = startQuietly();
    store->addProject("A", {});
    const std::string before = readFile(file("projects.json"));
    TimeEntry entry = entryFrom(0, 1);
    entry.hourlyRate = std::numeric_limits<double>::infinity();
    store->addManualEntry(store->projects->back().id, entry);
    EXPECT_EQ(log.lines, Lines{"Error saving projects: [1].entries[0].hourlyRate: number is not finite"});
    EXPECT_EQ(readFile(file("projects.json")), before);
    EXPECT_EQ(store->projects->back().entries.size(), 1U);
}

TEST_F(StoreFailure, folderInPlaceOfAFileFailsInBothDirections) {
    fs::create_directories(file("projects.json") / "inside");
    const auto store = start();
    ASSERT_EQ(otherLines().size(), 1U);
    EXPECT_EQ(otherLines()[0],
              "Error loading projects: " + file("projects.json").string() + ": Is a directory");
    EXPECT_EQ(projectNames(*store), Names{"Standardprojekt"});
    store->addProject("A", {});
    EXPECT_EQ(log.countStartingWith("Error saving projects: "), 1U);
    EXPECT_TRUE(fs::exists(file("projects.json") / "inside"));
    store->addSavedNote("n", "c");
    EXPECT_TRUE(fs::exists(file("savedNotes.json"))) << "the other files are not affected";
}

TEST_F(StoreFailure, fileInPlaceOfTheDocumentsFolderIsSurvived) {
    writeFile(home.documents(), "no folder");
    const auto store = start();
    EXPECT_EQ(otherLines(), Lines()) << "there is no file to load";
    store->addProject("A", {});
    EXPECT_EQ(log.countStartingWith("Error saving projects: "), 1U);
    EXPECT_EQ(store->projects->size(), 2U);
}

TEST_F(StoreFailure, fileWithoutReadPermissionIsLeftAlone) {
    writeFile(file("projects.json"), "[]");
    fs::permissions(file("projects.json"), fs::perms::none);
    const ChildEnd end = runAsNobody(home.path(), [this] {
        const auto store = start();
        EXPECT_EQ(otherLines(),
                  Lines{"Error loading projects: " + file("projects.json").string() + ": Permission denied"});
        EXPECT_EQ(projectNames(*store), Names{"Standardprojekt"});
        store->addProject("A", {});
        EXPECT_EQ(log.countStartingWith("Error saving projects: "), 1U);
    });
    EXPECT_FALSE(end.failed);
}

TEST_F(StoreFailure, folderWithoutWritePermissionKeepsEverythingInMemory) {
    fs::create_directories(home.documents());
    fs::permissions(home.documents(), fs::perms::owner_read | fs::perms::owner_exec);
    const ChildEnd end = runAsNobody(home.path(), [this] {
        const auto store = startQuietly();
        store->startTracking("x");
        store->stopTracking(store->activeEntries->begin()->first);
        EXPECT_EQ(log.countStartingWith("Error saving projects: "), 2U);
        EXPECT_EQ(store->projects->front().entries.size(), 1U);
    });
    EXPECT_FALSE(end.failed);
}

std::string fiftyMegabytesOf(char character) { return std::string().append(50000000, character); }

TEST_F(StoreFailure, fiftyMegabytesOfNoiseAreRefused) {
    std::mt19937_64 random(1);
    std::string noise = fiftyMegabytesOf('\0');
    for (std::size_t at = 0; at + 8 <= noise.size(); at += 8) {
        const auto block = random();
        std::memcpy(&noise[at], &block, 8);
    }
    writeFile(file("projects.json"), noise);
    const auto store = start();
    EXPECT_EQ(otherLines().size(), 1U);
    EXPECT_EQ(projectNames(*store), Names{"Standardprojekt"});
    ASSERT_EQ(files.written.size(), 1U);
    EXPECT_EQ(readFile(home.state() / "rescued" / files.written[0]), noise);
}

TEST_F(StoreFailure, fiftyMegabytesOfBracketsAreRefused) {
    writeFile(file("projects.json"), fiftyMegabytesOf('['));
    const auto store = start();
    EXPECT_EQ(otherLines().size(), 1U);
}

TEST_F(StoreFailure, fiftyMegabytesOfOneTextAreRefusedWhenItNeverEnds) {
    writeFile(file("customers.json"), "[\"" + fiftyMegabytesOf('x'));
    const auto store = start();
    EXPECT_EQ(log.countStartingWith("Error loading customers: "), 1U);
}

TEST_F(StoreFailure, rescueThatFailsIsOneLineAndNothingElse) {
    writeFile(file("projects.json"), "broken");
    writeFile(home.path() / "state", "a file where the state folder should be");
    const auto store = start();
    EXPECT_EQ(log.countStartingWith("Error keeping undecodable file: "), 1U);
    EXPECT_EQ(log.countStartingWith("Error loading projects: "), 1U);
    store->addProject("A", {});
    EXPECT_EQ(projectNames(*start()), (Names{"Standardprojekt", "A"}));
}

TEST_F(StoreFailure, withoutAHomeTheProgramStopsWithOneLine) {
    files.hasHome = false;
    EXPECT_EXIT(TimeTrackingStore{platform()}, testing::ExitedWithCode(EXIT_FAILURE),
                "^brisklog: no documents folder: HOME is not set\n$");
}

TEST_F(StoreFailure, withoutTheVariableTheProgramStopsToo) {
    ::unsetenv("HOME");
    EXPECT_EXIT(TimeTrackingStore{platform()}, testing::ExitedWithCode(EXIT_FAILURE), "^brisklog: ");
}

} // namespace
} // namespace brisklog::test
