#include "StoreFixture.h"

namespace brisklog::test {
namespace {

namespace fs = std::filesystem;

constexpr double day = 86400;

class DailyCopies : public StoreTest {
protected:
    DailyCopies() { clock.setZone("Europe/Berlin"); }

    [[nodiscard]] fs::path backups() const { return home.state() / "backups"; }

    [[nodiscard]] Names days() const {
        Names names;
        for (const auto& entry : fs::directory_iterator(backups()))
            names.push_back(entry.path().filename());
        std::ranges::sort(names);
        return names;
    }

    /// Starts the store and saves something new, as on an ordinary day.
    void workFor(const char* project) { start()->addProject(project, {}); }
};

TEST_F(DailyCopies, firstStartHasNothingToCopy) {
    workFor("A");
    EXPECT_FALSE(fs::exists(backups()));
}

TEST_F(DailyCopies, everyStoreFileIsCopiedAsItWasAtTheFirstLoadOfTheDay) {
    {
        const auto store = start();
        store->addProject("A", {});
        store->saveCustomers();
        store->addSavedNote("n", "c");
        store->addArchivedInvoice("R", {}, {});
    }
    const std::string before = readFile(file("projects.json"));
    workFor("B");
    workFor("C");
    const fs::path today = backups() / "2026-11-15";
    EXPECT_EQ(days(), Names{"2026-11-15"});
    EXPECT_EQ(readFile(today / "projects.json"), before);
    for (const char* const name : {"customers.json", "savedNotes.json", "archivedInvoices.json"})
        EXPECT_EQ(readFile(today / name), readFile(file(name)));
    EXPECT_EQ(otherLines(), Lines());
}

TEST_F(DailyCopies, dayIsTheUsersOwn) {
    workFor("A");
    clock.set(Date{816476399}); // 15 November, 23:59:59 in Berlin
    workFor("B");
    clock.advance(1);
    workFor("C");
    EXPECT_EQ(days(), (Names{"2026-11-15", "2026-11-16"}));
}

TEST_F(DailyCopies, lastFourteenDaysAreKept) {
    workFor("A");
    for (int i = 0; i < 20; ++i) {
        clock.advance(day);
        workFor("B");
    }
    ASSERT_EQ(days().size(), 14U);
    EXPECT_EQ(days().front(), "2026-11-22");
    EXPECT_EQ(days().back(), "2026-12-05");
}

TEST_F(DailyCopies, whatIsNotOursStays) {
    workFor("A");
    for (const char* const name : {"keep", "2020-1-1", "2020-01-01x", "x2020-01-01"})
        writeFile(backups() / name / "file", "x");
    for (int i = 0; i < 20; ++i)
        fs::create_directories(backups() / ("2020-01-" + std::to_string(10 + i)));
    workFor("B");
    EXPECT_EQ(days().size(), 14U + 4U);
    EXPECT_TRUE(fs::exists(backups() / "keep" / "file"));
    EXPECT_TRUE(fs::exists(backups() / "2026-11-15" / "projects.json"));
}

TEST_F(DailyCopies, fileThatDoesNotLoadIsNotCopiedUntilItDoes) {
    writeFile(file("projects.json"), "broken");
    workFor("A");
    EXPECT_FALSE(fs::exists(backups()));
    workFor("B");
    EXPECT_TRUE(fs::exists(backups() / "2026-11-15" / "projects.json"));
}

TEST_F(DailyCopies, failureIsOneLineAndNothingElse) {
    workFor("A");
    writeFile(backups(), "a file where the folder should be");
    log.lines.clear();
    const auto store = start();
    ASSERT_EQ(log.lines.size(), 1U);
    EXPECT_TRUE(log.lines[0].starts_with("Error keeping daily copy: ")) << log.lines[0];
    EXPECT_EQ(projectNames(*store), (Names{"Standardprojekt", "A"}));
}

TEST_F(DailyCopies, copyIsForItsOwnerAlone) {
    workFor("A");
    workFor("B");
    const auto permissions = fs::status(backups() / "2026-11-15" / "projects.json").permissions();
    EXPECT_EQ(permissions & (fs::perms::group_all | fs::perms::others_all), fs::perms::none);
}

} // namespace
} // namespace brisklog::test
