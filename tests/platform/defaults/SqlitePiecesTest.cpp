// Data values written and read in parts, and the long repeated stretches in them.

#include "SqliteUserDefaultsFixture.h"

#include <fstream>
#include <gmock/gmock.h>
#include <random>
#include <sqlite3.h>

namespace brisklog::test {
namespace {

namespace fs = std::filesystem;

using ::testing::AllOf;
using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;
using ::testing::StartsWith;
using Reading = LargeValueStore::Reading;

using SqlitePieces = SqliteDefaults;

std::string digits(std::size_t size, unsigned number) { return base64Digits(size, number); }

std::string record(unsigned number, std::size_t iconSize = 5000) {
    return "{\"number\":" + std::to_string(number) + ",\"icon\":\"" + digits(iconSize, number % 5) + "\"}";
}

std::string readWhole(const LargeValueStore& store, std::string_view key) {
    std::string bytes;
    EXPECT_EQ(store.readData(key,
                             [&](DataParts& parts) {
                                 bytes.clear();
                                 while (const auto part = parts.next())
                                     bytes += part->bytes;
                             }),
              Reading::complete);
    return bytes;
}

std::int64_t ask(const fs::path& file, const char* sql) {
    sqlite3* database = nullptr;
    EXPECT_EQ(sqlite3_open(file.c_str(), &database), SQLITE_OK);
    sqlite3_stmt* statement = nullptr;
    EXPECT_EQ(sqlite3_prepare_v2(database, sql, -1, &statement, nullptr), SQLITE_OK)
        << sqlite3_errmsg(database);
    EXPECT_EQ(sqlite3_step(statement), SQLITE_ROW);
    const auto answer = sqlite3_column_int64(statement, 0);
    sqlite3_finalize(statement);
    sqlite3_close(database);
    return answer;
}

std::int64_t pieceCount(const fs::path& file) { return ask(file, "SELECT count(*) FROM piece"); }

TEST_F(SqlitePieces, longRepeatedStretchesAreStoredOnce) {
    auto store = openStore();
    std::string expected;
    for (unsigned number = 0; number < 1000; ++number)
        expected += record(number);
    store.setValue("key", Data{expected});
    EXPECT_EQ(dataValue(store, "key"), expected);
    EXPECT_EQ(store.entries().at(0).size, expected.size());
    store.synchronise();
    EXPECT_GT(expected.size(), 5000000u);
    EXPECT_LT(fs::file_size(file()), 200000u);
    EXPECT_EQ(pieceCount(file()), 5);
}

TEST_F(SqlitePieces, theyAreSharedBetweenValues) {
    auto store = openStore();
    store.setValue("one", Data{record(1)});
    store.setValue("two", Data{record(1)});
    EXPECT_EQ(pieceCount(file()), 1);
    store.removeValue("one");
    EXPECT_EQ(dataValue(store, "two"), record(1));
    EXPECT_EQ(pieceCount(file()), 1);
    store.removeValue("two");
    EXPECT_EQ(pieceCount(file()), 0);
}

TEST_F(SqlitePieces, theyGoWithTheLastPlaceThatNamesThem) {
    auto store = openStore();
    const std::string one = record(1);
    store.setValue("key", Data{one + one + record(2)});
    EXPECT_EQ(pieceCount(file()), 2);
    replaceTail(store, "key", one.size() + 5, "");
    EXPECT_EQ(pieceCount(file()), 1);
    replaceTail(store, "key", one.size() - 100, "");
    EXPECT_EQ(dataValue(store, "key"), one.substr(0, one.size() - 100));
    store.setValue("key", Data{record(3)});
    EXPECT_EQ(pieceCount(file()), 1);
    store.setValue("key", true);
    EXPECT_EQ(pieceCount(file()), 0);
}

TEST_F(SqlitePieces, stretchesOfWhateverLengthComeBack) {
    auto store = openStore();
    for (const std::size_t size : {std::size_t{511}, std::size_t{512}, std::size_t{513}, std::size_t{4000},
                                   std::size_t{16384}, (std::size_t{1} << 20) - 1, std::size_t{1} << 20,
                                   (std::size_t{1} << 20) + 1, std::size_t{3} << 20}) {
        for (const std::string& before : {std::string(), std::string("\""), std::string(3999, '-')}) {
            const std::string expected = before + digits(size, 7);
            store.setValue("key", Data{expected});
            ASSERT_EQ(dataValue(store, "key"), expected) << size;
            replaceTail(store, "key", expected.size(), "\"end");
            ASSERT_EQ(dataValue(store, "key"), expected + "\"end") << size;
        }
    }
}

TEST_F(SqlitePieces, aReplacedTailEqualsTheValueWrittenWhole) {
    std::minstd_rand chance(19);
    auto store = openStore();
    std::string expected;
    store.setValue("key", Data{});
    for (int round = 0; round < 400; ++round) {
        const auto back = chance() % 4 == 0 ? chance() % 30000 : chance() % 40;
        const std::size_t offset = expected.size() - std::min<std::size_t>(back, expected.size());
        std::string tail;
        for (auto count = chance() % 4; count > 0; --count)
            tail += record(static_cast<unsigned>(chance() % 20), chance() % 2 == 0 ? 5000 : chance() % 2000);
        expected.resize(offset);
        expected += tail;
        ASSERT_TRUE(replaceTail(store, "key", offset, tail));
        ASSERT_EQ(dataValue(store, "key"), expected) << "round " << round;
        ASSERT_EQ(readWhole(store, "key"), expected);
    }
    EXPECT_EQ(dataValue(openStore(), "key"), expected);
    EXPECT_EQ(ask(file(), "SELECT count(*) FROM piece WHERE id NOT IN"
                          " (SELECT piece FROM chunk WHERE piece IS NOT NULL)"),
              0);
}

TEST_F(SqlitePieces, writingInPartsOfWhateverSizeIsTheSame) {
    auto store = openStore();
    const std::string expected = record(1) + record(2) + record(1);
    for (const std::size_t partSize : {1, 7, 100, 4999, 100000}) {
        std::vector<std::string_view> parts;
        for (std::size_t at = 0; at < expected.size(); at += partSize)
            parts.push_back(std::string_view(expected).substr(at, partSize));
        DataInParts data(parts);
        EXPECT_TRUE(store.replaceData("key", 0, data));
        EXPECT_EQ(dataValue(store, "key"), expected);
        EXPECT_EQ(pieceCount(file()), 2);
    }
}

TEST_F(SqlitePieces, aWriterThatGivesUpChangesNothing) {
    auto store = openStore();
    const std::string begun = record(9);
    DataInParts givenUp({begun}, DataInParts::End::givenUp);
    EXPECT_FALSE(store.replaceData("new", 0, givenUp));
    store.setValue("key", Data{record(1)});
    EXPECT_FALSE(store.replaceData("key", 0, givenUp));
    EXPECT_FALSE(store.replaceData("key", 3, givenUp));
    EXPECT_EQ(dataValue(store, "key"), record(1));
    EXPECT_EQ(store.entries().size(), 1u);
    EXPECT_EQ(pieceCount(file()), 1);
    EXPECT_THAT(log.lines, IsEmpty());
}

TEST_F(SqlitePieces, writingInPartsReplacesAValueOfAnotherType) {
    auto store = openStore();
    store.setValue("key", std::string("text"));
    EXPECT_TRUE(replaceTail(store, "key", 0, "data"));
    EXPECT_EQ(dataValue(store, "key"), "data");
}

TEST_F(SqlitePieces, damageFoundInTheMidstOfWritingLosesNothing) {
    storeSomething();
    const auto page = ask(file(), "SELECT rootpage FROM sqlite_schema WHERE name = 'piece'");
    std::fstream(file(), std::ios::in | std::ios::out | std::ios::binary)
        .seekp((page - 1) * 4096)
        .write(std::string(4096, '\xA5').data(), 4096);
    auto store = openStore();
    ASSERT_EQ(textValue(store, "short"), "kurz") << "this part of the file is intact";
    const std::string begun = variedBytes(20000);
    const std::string picture = record(1);
    DataInParts data({begun, picture, begun});
    EXPECT_TRUE(store.replaceData("key", 0, data));
    EXPECT_EQ(dataValue(store, "key"), begun + picture + begun) << "complete, from its first part on";
    EXPECT_EQ(store.value("short"), std::nullopt);
    EXPECT_THAT(log.lines, ElementsAre(HasSubstr("kept as")));
}

TEST_F(SqlitePieces, onlyDataHasASizeAsData) {
    auto store = openStore();
    EXPECT_EQ(store.dataSize("key"), std::nullopt);
    store.setValue("key", std::string("text"));
    EXPECT_EQ(store.dataSize("key"), std::nullopt);
    store.setValue("key", Data{});
    EXPECT_EQ(store.dataSize("key"), 0u);
    EXPECT_TRUE(replaceTail(store, "key", 0, record(1) + record(1)));
    EXPECT_EQ(store.dataSize("key"), 2 * record(1).size());
}

TEST_F(SqlitePieces, readingTellsWhatIsThere) {
    auto store = openStore();
    int calls = 0;
    const auto read = [&](DataParts& parts) {
        ++calls;
        EXPECT_EQ(parts.next(), std::nullopt) << "the value is empty";
    };
    EXPECT_EQ(store.readData("key", read), Reading::absent);
    store.setValue("text", std::string("text"));
    store.setValue("empty", Data{});
    EXPECT_EQ(store.readData("key", read), Reading::absent);
    EXPECT_EQ(store.readData("text", read), Reading::otherType);
    EXPECT_EQ(calls, 0);
    EXPECT_EQ(store.readData("empty", read), Reading::complete);
    EXPECT_EQ(calls, 1);
}

TEST_F(SqlitePieces, aRepeatedStretchIsTheSameObjectEverywhere) {
    auto store = openStore();
    store.setValue("key", Data{record(1) + record(2) + record(1)});
    std::vector<std::shared_ptr<const std::string>> repeated;
    (void)store.readData("key", [&](DataParts& parts) {
        while (const auto part = parts.next())
            if (part->repeated) {
                EXPECT_EQ(*part->repeated, part->bytes);
                repeated.push_back(part->repeated);
            }
    });
    ASSERT_EQ(repeated.size(), 3u);
    EXPECT_EQ(repeated[0], repeated[2]);
    EXPECT_NE(repeated[0], repeated[1]);
    EXPECT_EQ(*repeated[1], digits(5000, 2));
}

TEST_F(SqlitePieces, theEndStaysTheEnd) {
    auto store = openStore();
    store.setValue("key", Data{record(1)});
    (void)store.readData("key", [](DataParts& parts) {
        while (parts.next()) {
        }
        EXPECT_FALSE(parts.next());
        EXPECT_FALSE(parts.next());
    });
    EXPECT_EQ(dataValue(store, "key"), record(1));
    EXPECT_THAT(log.lines, IsEmpty());
}

TEST_F(SqlitePieces, readingMayStopAnywhere) {
    auto store = openStore();
    store.setValue("key", Data{record(1) + record(2)});
    EXPECT_EQ(store.readData("key", [](DataParts& parts) { (void)parts.next(); }), Reading::complete);
    store.setValue("key", Data{"after"});
    EXPECT_EQ(readWhole(store, "key"), "after");
}

TEST_F(SqlitePieces, aMissingPieceSetsTheFileAside) {
    {
        auto store = openStore();
        store.setValue("key", Data{record(1)});
    }
    sqlite3* other = nullptr;
    ASSERT_EQ(sqlite3_open(file().c_str(), &other), SQLITE_OK);
    ASSERT_EQ(sqlite3_exec(other, "DELETE FROM piece", nullptr, nullptr, nullptr), SQLITE_OK);
    sqlite3_close(other);
    auto store = openStore();
    EXPECT_EQ(store.readData("key",
                             [](DataParts& parts) {
                                 while (parts.next()) {
                                 }
                             }),
              Reading::absent);
    EXPECT_THAT(log.lines,
                ElementsAre(AllOf(StartsWith("Error opening user defaults: "), HasSubstr("kept as"))));
    store.setValue("key", Data{"new"});
    EXPECT_EQ(dataValue(store, "key"), "new");
}

TEST_F(SqlitePieces, renamingMovesTheValueAsItIs) {
    auto store = openStore();
    EXPECT_FALSE(store.renameValue("key", "other"));
    store.setValue("key", Data{record(1)});
    store.setValue("taken", true);
    EXPECT_FALSE(store.renameValue("key", "taken"));
    EXPECT_FALSE(store.renameValue("missing", "other"));
    EXPECT_TRUE(store.renameValue("key", "other"));
    EXPECT_FALSE(store.value("key"));
    EXPECT_EQ(dataValue(store, "other"), record(1));
    EXPECT_TRUE(store.value("taken"));
    EXPECT_THAT(log.lines, IsEmpty());
}

// A store without pieces, as earlier versions made it

TEST_F(SqlitePieces, anEarlierVersionsStoreOpensWithEverythingInIt) {
    makeEarlierVersionsStore();
    auto store = openStore();
    EXPECT_EQ(textValue(store, "short"), "kurz");
    const std::string before = earlierVersionsData();
    EXPECT_EQ(dataValue(store, "long"), before);
    EXPECT_TRUE(replaceTail(store, "long", 16386, record(1)));
    EXPECT_EQ(dataValue(store, "long"), before.substr(0, 16386) + record(1));
    EXPECT_EQ(pieceCount(file()), 1);
    EXPECT_TRUE(replaceTail(store, "long", 16000, "x"));
    EXPECT_EQ(dataValue(openStore(), "long"), before.substr(0, 16000) + "x");
    EXPECT_THAT(log.lines, IsEmpty());
    EXPECT_THAT(filesStartingWith("defaults.sqlite.broken-"), IsEmpty());
}

} // namespace
} // namespace brisklog::test
