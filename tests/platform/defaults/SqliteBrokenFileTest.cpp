#include "SqliteUserDefaultsFixture.h"

#include "support/ChildProcess.h"

#include <fstream>
#include <gmock/gmock.h>
#include <random>
#include <sqlite3.h>
#include <sys/stat.h>

namespace brisklog::test {
namespace {

namespace fs = std::filesystem;

using ::testing::AllOf;
using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;
using ::testing::SizeIs;
using ::testing::StartsWith;

// Contains the fake clock's time.
constexpr const char* brokenName = "defaults.sqlite.broken-1794733200000";

void overwrite(const fs::path& path, std::size_t position, std::string_view bytes) {
    std::fstream file(path, std::ios::in | std::ios::out | std::ios::binary);
    file.seekp(static_cast<std::streamoff>(position));
    file.write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
}

/// Makes a database as another program or another version might.
void makeDatabase(const fs::path& path, const char* sql) {
    fs::create_directories(path.parent_path());
    sqlite3* database = nullptr;
    ASSERT_EQ(sqlite3_open(path.c_str(), &database), SQLITE_OK);
    ASSERT_EQ(sqlite3_exec(database, sql, nullptr, nullptr, nullptr), SQLITE_OK);
    sqlite3_close(database);
}

class SqliteBrokenFile : public SqliteDefaults {
public:
    /// Expects that the broken file is set aside unchanged, with one line, and that the store works.
    void expectSetAside(const std::string& brokenBytes) {
        auto store = openStore();
        EXPECT_FALSE(store.value("short"));
        store.setValue("fresh", std::string("new"));
        EXPECT_EQ(textValue(store, "fresh"), "new");
        EXPECT_EQ(textValue(openStore(), "fresh"), "new");
        EXPECT_THAT(log.lines,
                    ElementsAre(AllOf(StartsWith("Error opening user defaults: "), HasSubstr(brokenName))));
        EXPECT_EQ(readFile(home.configuration() / brokenName), brokenBytes);
    }
};

TEST_F(SqliteBrokenFile, whatIsNoDatabaseIsSetAside) {
    writeFile(file(), "this is not a database, however long one looks at it");
    expectSetAside(readFile(file()));
}

TEST_F(SqliteBrokenFile, aHeaderWithoutTheRestIsSetAside) {
    storeSomething();
    fs::resize_file(file(), 100);
    expectSetAside(readFile(file()));
}

TEST_F(SqliteBrokenFile, aDamagedBeginningIsSetAside) {
    storeSomething();
    overwrite(file(), 100, std::string(3900, '\xA5'));
    expectSetAside(readFile(file()));
}

TEST_F(SqliteBrokenFile, damageThatLooksLikeALackOfMemoryIsSetAside) {
    storeSomething();
    const std::string whole = readFile(file());
    const auto byteAt = [&](std::size_t at) { return std::size_t{static_cast<unsigned char>(whole[at])}; };
    // The database's first page lists where its tables are described.
    const std::size_t lastOfList = 108 + 2 * (byteAt(104) - 1);
    const std::size_t description = byteAt(lastOfList) << 8 | byteAt(lastOfList + 1);
    // It claims to be 68 gigabytes long and to continue where there are no bytes.
    constexpr std::string_view boastful("\xFF\xFF\xFF\xFF\xFF\x65\0\x20\0\0\0\x87\x74", 13);
    overwrite(file(), description, boastful);
    expectSetAside(readFile(file()));
}

TEST_F(SqliteBrokenFile, keysThatTheirIndexHasLostAreSetAside) {
    storeSomething();
    const std::string whole = readFile(file());
    // The key occurs in its row and, on a later page, in the index.
    const std::size_t inIndex = whole.rfind("short");
    ASSERT_LT(whole.find("short"), inIndex);
    overwrite(file(), inIndex, "shirt");
    expectSetAside(readFile(file()));
}

TEST_F(SqliteBrokenFile, aStrangersDatabaseIsSetAside) {
    makeDatabase(file(), "CREATE TABLE value (id); INSERT INTO value VALUES (1)");
    expectSetAside(readFile(file()));
}

TEST_F(SqliteBrokenFile, aLaterVersionsDatabaseIsSetAside) {
    makeDatabase(file(), "CREATE TABLE value (id); PRAGMA user_version = 3");
    expectSetAside(readFile(file()));
}

TEST_F(SqliteBrokenFile, anEmptyFileIsANewStore) {
    writeFile(file(), "");
    auto store = openStore();
    EXPECT_FALSE(store.value("key"));
    store.setValue("key", true);
    EXPECT_TRUE(store.value("key"));
    EXPECT_THAT(log.lines, IsEmpty());
}

TEST_F(SqliteBrokenFile, aFolderInItsPlaceIsSetAside) {
    writeFile(file() / "inside", "kept");
    auto store = openStore();
    store.setValue("key", true);
    EXPECT_TRUE(openStore().value("key"));
    EXPECT_EQ(readFile(home.configuration() / brokenName / "inside"), "kept");
    EXPECT_THAT(log.lines, SizeIs(1));
}

TEST_F(SqliteBrokenFile, aPipeInItsPlaceIsSetAside) {
    fs::create_directories(home.configuration());
    ASSERT_EQ(::mkfifo(file().c_str(), 0600), 0);
    auto store = openStore();
    EXPECT_FALSE(store.value("key"));
    store.setValue("key", true);
    EXPECT_TRUE(openStore().value("key"));
    EXPECT_THAT(log.lines, SizeIs(1));
}

TEST_F(SqliteBrokenFile, damageFoundLaterSetsTheFileAsideToo) {
    storeSomething();
    fs::resize_file(file(), fs::file_size(file()) / 2);
    auto store = openStore();
    EXPECT_FALSE(dataValue(store, "long"));
    store.setValue("long", Data{"[]"});
    EXPECT_EQ(dataValue(store, "long"), "[]");
    EXPECT_TRUE(fs::exists(home.configuration() / brokenName));
    EXPECT_THAT(log.lines, SizeIs(1));
}

TEST_F(SqliteBrokenFile, damageFoundWhileWritingDoesNotLoseTheWrittenValue) {
    storeSomething();
    {
        // Every page but the first: the look-ups needed for a write hit damage.
        const std::string rest(fs::file_size(file()) - 4096, '\xA5');
        overwrite(file(), 4096, rest);
    }
    auto store = openStore();
    store.setValue("key", Data{"kept"});
    EXPECT_EQ(dataValue(store, "key"), "kept");
    EXPECT_EQ(dataValue(openStore(), "key"), "kept");
    EXPECT_THAT(log.lines, SizeIs(1));
}

TEST_F(SqliteBrokenFile, itsLogGoesWithIt) {
    writeFile(file(), "this is not a database, however long one looks at it");
    writeFile(file().string() + "-wal", "its log");
    (void)openStore().value("key");
    EXPECT_EQ(readFile(home.configuration() / (std::string(brokenName) + "-wal")), "its log");
}

TEST_F(SqliteBrokenFile, twoOfTheSameMomentAreBothKept) {
    for (const char* const content : {"first broken content", "second broken content"}) {
        writeFile(file(), content);
        (void)openStore().value("key");
    }
    EXPECT_EQ(readFile(home.configuration() / brokenName), "first broken content");
    EXPECT_EQ(readFile(home.configuration() / (std::string(brokenName) + "-2")), "second broken content");
}

TEST_F(SqliteBrokenFile, anUnreadableFileIsSetAside) {
    storeSomething();
    fs::permissions(file(), fs::perms::none);
    const auto end = runAsNobody(home.path(), [this] {
        auto store = openStore();
        EXPECT_FALSE(store.value("short"));
        store.setValue("key", true);
        EXPECT_TRUE(openStore().value("key"));
        EXPECT_THAT(log.lines, SizeIs(1));
        EXPECT_THAT(filesStartingWith("defaults.sqlite.broken-"), ElementsAre(brokenName));
    });
    EXPECT_FALSE(end.failed);
}

/// Expects the store to work in memory, with one line.
void expectInMemory(SqliteDefaults& test) {
    auto store = test.openStore();
    store.setValue("key", Data{"value"});
    EXPECT_EQ(dataValue(store, "key"), "value");
    store.synchronise();
    EXPECT_THAT(test.log.lines, ElementsAre(AllOf(StartsWith("Error opening user defaults: "),
                                                  HasSubstr("values last until the program ends"))));
}

TEST_F(SqliteBrokenFile, inAReadOnlyFolderValuesLastAsLongAsTheProcess) {
    storeSomething();
    const std::string before = readFile(file());
    fs::permissions(home.configuration(), fs::perms::owner_read | fs::perms::owner_exec);
    EXPECT_FALSE(runAsNobody(home.path(), [this] { expectInMemory(*this); }).failed);
    EXPECT_EQ(readFile(file()), before);
    EXPECT_THAT(filesStartingWith(""), ElementsAre("defaults.sqlite"));
}

TEST_F(SqliteBrokenFile, inAnEmptyReadOnlyFolderValuesLastAsLongAsTheProcess) {
    fs::create_directories(home.configuration());
    fs::permissions(home.configuration(), fs::perms::owner_read | fs::perms::owner_exec);
    EXPECT_FALSE(runAsNobody(home.path(), [this] { expectInMemory(*this); }).failed);
}

TEST_F(SqliteBrokenFile, withoutAFolderValuesLastAsLongAsTheProcess) {
    writeFile(home.configuration(), "a file where the folder should be");
    expectInMemory(*this);
}

TEST_F(SqliteBrokenFile, whateverIsDamagedTheStoreGoesOnWorking) {
    storeSomething();
    const std::string picture = "\"" + base64Digits(6000, 1) + "\"";
    openStore().setValue("pictures", Data{picture + picture + base64Digits(600, 2)});
    const std::string whole = readFile(file());
    std::mt19937 chance(11);
    for (int round = 0; round < 150; ++round) {
        std::string damaged = whole;
        for (int wound = 0; wound <= round % 8; ++wound)
            damaged[chance() % (round % 2 == 0 ? damaged.size() : 4096)] = static_cast<char>(chance());
        if (round % 5 == 0)
            damaged.resize(chance() % damaged.size());
        fs::remove_all(home.configuration());
        writeFile(file(), damaged);
        auto store = openStore();
        (void)store.entries();
        (void)store.value("short");
        (void)replaceTail(store, "long", 150000, "tail");
        (void)store.value("long");
        (void)replaceTail(store, "pictures", 7000, picture);
        (void)store.value("pictures");
        (void)store.renameValue("pictures", "moved");
        store.setValue("fresh", Data{"new"});
        ASSERT_EQ(dataValue(store, "fresh"), "new") << "round " << round;
    }
}

} // namespace
} // namespace brisklog::test
