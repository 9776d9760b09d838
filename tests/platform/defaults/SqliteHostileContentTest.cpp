// An intact database in our own format, with content that this program would never write.

#include "SqliteUserDefaultsFixture.h"

#include <gmock/gmock.h>
#include <sqlite3.h>

namespace brisklog::test {
namespace {

using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;
using ::testing::Not;
using ::testing::SizeIs;

class SqliteHostileContent : public SqliteDefaults {
public:
    void changeBySql(const std::string& statements) {
        sqlite3* database = nullptr;
        ASSERT_EQ(sqlite3_open(file().c_str(), &database), SQLITE_OK);
        EXPECT_EQ(sqlite3_exec(database, statements.c_str(), nullptr, nullptr, nullptr), SQLITE_OK)
            << sqlite3_errmsg(database);
        sqlite3_close(database);
    }

    /// Expects that the file is set aside once, for this reason, and that the store works.
    void expectSetAside(const char* reason) {
        auto store = openStore();
        EXPECT_THAT(store.entries(), IsEmpty());
        store.setValue("fresh", Data{"new"});
        EXPECT_EQ(dataValue(store, "fresh"), "new");
        EXPECT_THAT(log.lines, ElementsAre(HasSubstr(reason)));
        EXPECT_THAT(filesStartingWith("defaults.sqlite.broken-"), Not(IsEmpty()));
    }
};

TEST_F(SqliteHostileContent, aValueWhoseBytesHaveNoPlaceSetsTheFileAside) {
    for (const std::string id : {"9223372036854775807", "-9223372036854775808", "8388607", "0", "-1"}) {
        log.lines.clear();
        std::filesystem::remove_all(home.configuration());
        storeSomething();
        changeBySql("UPDATE value SET id = " + id + " WHERE key = 'long'");
        expectSetAside("a value without a place");
    }
}

TEST_F(SqliteHostileContent, aValueThatHasNoPlaceIsNotReadEither) {
    storeSomething();
    changeBySql("UPDATE value SET id = 8388607 WHERE key = 'long'");
    const auto store = openStore();
    EXPECT_EQ(store.readData("long", [](DataParts&) { FAIL() << "there is nothing to read"; }),
              LargeValueStore::Reading::absent);
    EXPECT_THAT(log.lines, SizeIs(1));
}

TEST_F(SqliteHostileContent, aSizeThatNoValueHasSetsTheFileAside) {
    storeSomething();
    changeBySql("UPDATE value SET size = -1 WHERE key = 'short'");
    expectSetAside("a value without a place");
}

TEST_F(SqliteHostileContent, theLargestIdStillWorks) {
    storeSomething();
    changeBySql("UPDATE value SET id = 8388606 WHERE key = 'short'");
    auto store = openStore();
    store.setValue("short", Data{"bytes"});
    EXPECT_EQ(dataValue(store, "short"), "bytes");
    EXPECT_THAT(log.lines, IsEmpty());
}

TEST_F(SqliteHostileContent, aViewWithoutEndSetsTheFileAside) {
    storeSomething();
    changeBySql("DROP TABLE value;"
                "CREATE VIEW value AS"
                " WITH RECURSIVE n (i) AS (SELECT 1 UNION ALL SELECT i + 1 FROM n)"
                " SELECT i AS id, 'key' || i AS key, 2 AS type, 0 AS size, i AS content FROM n");
    expectSetAside("Error opening user defaults");
}

TEST_F(SqliteHostileContent, aTriggerIsNeverRun) {
    storeSomething();
    changeBySql("CREATE TRIGGER endless AFTER INSERT ON value BEGIN"
                " INSERT INTO piece (hash, bytes)"
                "  WITH RECURSIVE n (i) AS (SELECT 1 UNION ALL SELECT i + 1 FROM n) SELECT i, x'00' FROM n;"
                " END");
    auto store = openStore();
    store.setValue("fresh", Data{"new"});
    EXPECT_EQ(dataValue(store, "fresh"), "new");
    EXPECT_EQ(textValue(store, "short"), "kurz");
}

TEST_F(SqliteHostileContent, aRowThatWouldFillTheMemoryIsNotRead) {
    storeSomething();
    changeBySql("DROP TABLE value;"
                "CREATE TABLE value (id INTEGER PRIMARY KEY, key TEXT UNIQUE, type INTEGER, size INTEGER,"
                "                    content AS (zeroblob(900000000)));"
                "INSERT INTO value (key, type, size) VALUES ('short', 0, 4)");
    auto store = openStore();
    EXPECT_EQ(store.value("short"), std::nullopt);
    EXPECT_THAT(log.lines, ElementsAre(HasSubstr("too big")));
}

} // namespace
} // namespace brisklog::test
