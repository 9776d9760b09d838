#include "SqliteUserDefaultsFixture.h"

#include <cmath>
#include <gmock/gmock.h>
#include <limits>
#include <random>
#include <sys/stat.h>

namespace brisklog::test {
namespace {

namespace fs = std::filesystem;

using ::testing::IsEmpty;
using Limits = std::numeric_limits<double>;
using Type = UserDefaults::Type;

void expectKept(UserDefaults& store, const UserDefaults::Value& value) {
    store.setValue("key", value);
    EXPECT_EQ(store.value("key"), value);
}

TEST_F(SqliteDefaults, everyTypeComesBackAsItWas) {
    auto store = openStore();
    for (const std::string& text : {std::string(), std::string("Grüße"), std::string("a\0b", 3),
                                    std::string("\xFF\xC3", 2), std::string(100000, 'x')}) {
        expectKept(store, text);
        expectKept(store, Data{text});
    }
    for (const bool truth : {false, true})
        expectKept(store, truth);
    for (const std::int64_t number : {INT64_MIN, std::int64_t{0}, INT64_MAX})
        expectKept(store, number);
    for (const double number : {0.1, 5.0, 1e300, Limits::infinity(), Limits::denorm_min()})
        expectKept(store, number);
    EXPECT_THAT(log.lines, IsEmpty());
}

TEST_F(SqliteDefaults, unusualNumbersComeBack) {
    auto store = openStore();
    store.setValue("notANumber", Limits::quiet_NaN());
    store.setValue("minusZero", -0.0);
    EXPECT_TRUE(std::isnan(std::get<double>(store.value("notANumber").value())));
    EXPECT_TRUE(std::signbit(std::get<double>(store.value("minusZero").value())));
}

TEST_F(SqliteDefaults, valuesOutliveTheStore) {
    storeSomething();
    EXPECT_EQ(textValue(openStore(), "short"), "kurz");
    EXPECT_EQ(dataValue(openStore(), "long"), variedBytes(200000));
}

TEST_F(SqliteDefaults, aValueOfAnotherTypeReplacesTheOldOne) {
    auto store = openStore();
    store.setValue("key", Data{variedBytes(50000)});
    store.setValue("key", true);
    EXPECT_EQ(store.value("key"), UserDefaults::Value(true));
    store.setValue("key", Data{"short"});
    EXPECT_EQ(dataValue(store, "key"), "short");
    EXPECT_EQ(store.entries().size(), 1u);
}

TEST_F(SqliteDefaults, aRemovedValueIsAbsent) {
    auto store = openStore();
    store.setValue("gone", Data{variedBytes(50000)});
    store.setValue("stays", true);
    store.removeValue("gone");
    store.removeValue("never there");
    EXPECT_FALSE(store.value("gone"));
    EXPECT_TRUE(store.value("stays"));
}

TEST_F(SqliteDefaults, lookingAndRemovingMakeNoFile) {
    auto store = openStore();
    EXPECT_FALSE(store.value("key"));
    EXPECT_THAT(store.entries(), IsEmpty());
    EXPECT_FALSE(replaceTail(store, "key", 1, "tail"));
    store.removeValue("key");
    store.synchronise();
    EXPECT_FALSE(fs::exists(home.configuration()));
    EXPECT_THAT(log.lines, IsEmpty());
}

TEST_F(SqliteDefaults, entriesTellTypeAndSizeInTheOrderOfTheirMaking) {
    auto store = openStore();
    store.setValue("text", std::string("Grüße"));
    store.setValue("data", Data{variedBytes(100001)});
    store.setValue("truth", true);
    store.setValue("integer", std::int64_t{7});
    store.setValue("number", 7.5);
    replaceTail(store, "data", 100001, "more");

    const auto entries = store.entries();
    ASSERT_EQ(entries.size(), 5u);
    EXPECT_EQ(entries[0].key, "text");
    EXPECT_EQ(entries[0].type, Type::text);
    EXPECT_EQ(entries[0].size, 7u);
    EXPECT_EQ(entries[1].type, Type::data);
    EXPECT_EQ(entries[1].size, 100005u);
    EXPECT_EQ(entries[2].type, Type::truth);
    EXPECT_EQ(entries[2].size, 0u);
    EXPECT_EQ(entries[3].type, Type::integer);
    EXPECT_EQ(entries[4].type, Type::number);
}

TEST_F(SqliteDefaults, aReplacedTailEqualsTheValueWrittenWhole) {
    std::mt19937 chance(7);
    auto store = openStore();
    std::string expected;
    store.setValue("key", Data{});
    for (int round = 0; round < 300; ++round) {
        const bool atBorder = round % 3 == 0;
        std::size_t offset = std::uniform_int_distribution<std::size_t>(0, expected.size())(chance);
        if (atBorder)
            offset = offset / 16384 * 16384;
        const std::string tail =
            variedBytes(std::uniform_int_distribution<std::size_t>(0, round % 10 == 0 ? 70000 : 400)(chance));
        expected.resize(offset);
        expected += tail;
        ASSERT_TRUE(replaceTail(store, "key", offset, tail));
        ASSERT_EQ(dataValue(store, "key"), expected) << "round " << round;
    }
    EXPECT_EQ(dataValue(openStore(), "key"), expected);
}

TEST_F(SqliteDefaults, manySmallTailsFillTheChunksWithoutGaps) {
    auto store = openStore();
    std::string expected = "[]";
    store.setValue("key", Data{expected});
    for (int count = 0; count < 600; ++count) {
        const std::string tail = "{\"count\":" + std::to_string(count) + std::string(100, 'x') + "}]";
        ASSERT_TRUE(replaceTail(store, "key", expected.size() - 1, tail));
        expected.pop_back();
        expected += tail;
    }
    EXPECT_EQ(dataValue(store, "key"), expected);
}

TEST_F(SqliteDefaults, aTailIsOnlyReplacedWhereThereIsData) {
    auto store = openStore();
    store.setValue("text", std::string("abc"));
    store.setValue("data", Data{"abc"});
    EXPECT_FALSE(replaceTail(store, "missing", 1, "x"));
    EXPECT_FALSE(replaceTail(store, "text", 1, "x"));
    EXPECT_FALSE(replaceTail(store, "data", 4, "x"));
    EXPECT_EQ(textValue(store, "text"), "abc");
    EXPECT_EQ(dataValue(store, "data"), "abc");
    EXPECT_EQ(store.entries().size(), 2u);
}

TEST_F(SqliteDefaults, appendingToALongValueWritesLittle) {
    {
        auto store = openStore();
        store.setValue("key", Data{variedBytes(5000000)});
    }
    auto store = openStore();
    ASSERT_TRUE(replaceTail(store, "key", 4999998, variedBytes(1200)));
    EXPECT_LE(fs::file_size(file().string() + "-wal"), 65536u);
}

TEST_F(SqliteDefaults, folderAndFilesAreForTheirOwnerAlone) {
    const auto before = ::umask(0);
    auto store = openStore();
    store.setValue("key", true);
    ::umask(before);
    EXPECT_EQ(modeOf(home.configuration()), 0700u);
    EXPECT_EQ(modeOf(file()), 0600u);
    EXPECT_EQ(modeOf(file().string() + "-wal"), 0600u);
    EXPECT_EQ(modeOf(file().string() + "-shm"), 0600u);
}

TEST_F(SqliteDefaults, afterSynchronisingTheFileAloneHoldsEverything) {
    auto store = openStore();
    store.setValue("key", std::string("value"));
    store.synchronise();
    const auto copy = home.configuration() / "copy.sqlite";
    fs::copy_file(file(), copy);
    EXPECT_EQ(textValue(SqliteUserDefaults(copy, clock, log), "key"), "value");
}

TEST_F(SqliteDefaults, deletingALongValueFreesTheDisk) {
    auto store = openStore();
    store.setValue("short", std::string("kurz"));
    store.setValue("long", Data{variedBytes(8000000)});
    store.synchronise();
    ASSERT_GT(fs::file_size(file()), 8000000u);
    replaceTail(store, "long", 0, "[]");
    EXPECT_LT(fs::file_size(file()), 100000u);
    EXPECT_EQ(dataValue(store, "long"), "[]");
    EXPECT_EQ(textValue(store, "short"), "kurz");
}

TEST_F(SqliteDefaults, withoutAFileValuesLastAsLongAsTheStore) {
    SqliteUserDefaults store(std::nullopt, clock, log);
    store.setValue("key", Data{variedBytes(40000)});
    EXPECT_TRUE(replaceTail(store, "key", 40000, "x"));
    store.synchronise();
    EXPECT_EQ(dataValue(store, "key"), variedBytes(40000) + "x");
    EXPECT_THAT(log.lines, IsEmpty());
}

} // namespace
} // namespace brisklog::test
