// The user defaults on a full disk, beside another process, and when the process is killed.

#include "SqliteUserDefaultsFixture.h"

#include "platform/files/Process.h"
#include "support/ChildProcess.h"

#include <fstream>
#include <gmock/gmock.h>
#include <sys/resource.h>
#include <unistd.h>

namespace brisklog::test {
namespace {

namespace fs = std::filesystem;

using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::StartsWith;

using SqliteHardship = SqliteDefaults;

/// Writes until not a single byte more fits.
void fillDisk(const fs::path& folder) {
    std::ofstream filler(folder / "filler", std::ios::binary);
    filler << std::unitbuf;
    while (filler.put('x')) {
    }
}

/// Runs the work with the store's folder on a small separate disk; skips the test where mounting is not
/// allowed.
void onSmallDisk(const SqliteDefaults& test, const std::function<void()>& work) {
    fs::create_directories(test.home.configuration());
    SharedCounter mounted;
    const auto end = runInChild([&] {
        if (!mountSmallFileSystem(test.home.configuration(), "1m"))
            return;
        mounted.set(1);
        work();
    });
    if (mounted.value() == 0)
        GTEST_SKIP() << "no file system can be mounted here";
    EXPECT_FALSE(end.failed);
    EXPECT_EQ(end.signal, 0);
}

TEST_F(SqliteHardship, onAFullDiskTheValueIsLostWithOneLine) {
    onSmallDisk(*this, [this] {
        auto store = openStore();
        store.setValue("key", Data{"old"});
        store.setValue("key", Data{variedBytes(3000000)});
        EXPECT_THAT(log.lines, ElementsAre(StartsWith("Error writing user defaults: key: ")));
        EXPECT_EQ(dataValue(store, "key"), "old");
        EXPECT_EQ(dataValue(openStore(), "key"), "old");
        EXPECT_THAT(filesStartingWith("defaults.sqlite.broken-"), IsEmpty());
    });
}

TEST_F(SqliteHardship, startingOnAFullDiskStillReadsEverything) {
    onSmallDisk(*this, [this] {
        storeSomething();
        fillDisk(home.configuration());
        auto store = openStore();
        EXPECT_EQ(textValue(store, "short"), "kurz");
        EXPECT_EQ(dataValue(store, "long"), variedBytes(200000));
        EXPECT_FALSE(replaceTail(store, "long", 200000, variedBytes(50000)));
        EXPECT_THAT(log.lines, ElementsAre(StartsWith("Error writing user defaults: long: ")));
        fs::remove(home.configuration() / "filler");
        EXPECT_TRUE(replaceTail(store, "long", 200000, variedBytes(50000)));
        EXPECT_EQ(dataValue(store, "long"), variedBytes(200000) + variedBytes(50000));
    });
}

TEST_F(SqliteHardship, aFirstWriteOnAFullDiskIsLostAndALaterOneKept) {
    onSmallDisk(*this, [this] {
        fillDisk(home.configuration());
        auto store = openStore();
        store.setValue("key", true);
        EXPECT_FALSE(store.value("key"));
        fs::remove(home.configuration() / "filler");
        store.setValue("key", true);
        EXPECT_TRUE(openStore().value("key"));
        EXPECT_THAT(filesStartingWith("defaults.sqlite.broken-"), IsEmpty());
    });
}

TEST_F(SqliteHardship, whatCannotBeReadOnAFullDiskIsNotTakenForAbsent) {
    onSmallDisk(*this, [this] {
        makeEarlierVersionsStore();
        fillDisk(home.configuration());
        auto store = openStore();
        EXPECT_EQ(store.readData("long", [](DataParts&) {}), LargeValueStore::Reading::failed);
        EXPECT_THAT(log.lines, ElementsAre(StartsWith("Error reading user defaults: long: ")));
        fs::remove(home.configuration() / "filler");
        EXPECT_EQ(dataValue(store, "long"), earlierVersionsData());
        EXPECT_THAT(filesStartingWith("defaults.sqlite.broken-"), IsEmpty());
    });
}

TEST_F(SqliteHardship, beyondTheSizeLimitTheValueIsLostWithOneLine) {
    storeSomething();
    const auto end = runInChild([this] {
        surviveFailedWrites();
        const struct rlimit limit { 100000, 100000 };

        ASSERT_EQ(::setrlimit(RLIMIT_FSIZE, &limit), 0);
        auto store = openStore();
        store.setValue("short", Data{variedBytes(300000)});
        EXPECT_THAT(log.lines, ElementsAre(StartsWith("Error writing user defaults: short: ")));
        EXPECT_EQ(textValue(store, "short"), "kurz");
    });
    EXPECT_EQ(end.signal, 0);
    EXPECT_FALSE(end.failed);
    EXPECT_EQ(textValue(openStore(), "short"), "kurz");
}

TEST_F(SqliteHardship, twoProcessesThatWriteAtOnceLoseNothing) {
    constexpr int rounds = 150;
    const auto write = [this](const std::string& name) {
        auto store = openStore();
        for (int round = 0; round < rounds; ++round)
            store.setValue(name + std::to_string(round), Data{variedBytes(2000)});
        EXPECT_THAT(log.lines, IsEmpty());
    };
    // Both processes begin at the same moment, so both create the file.
    const auto end = runInChild([&] {
        const auto inner = startInChild([&write] { write("inner"); });
        write("outer");
        EXPECT_FALSE(waitForChild(inner).failed);
    });
    EXPECT_FALSE(end.failed);
    EXPECT_EQ(openStore().entries().size(), 2u * rounds);
}

TEST_F(SqliteHardship, twoProcessesThatBeginAtOnceBothKeepTheirValue) {
    for (int round = 0; round < 40; ++round) {
        fs::remove_all(home.configuration());
        const auto keep = [this](const char* key) {
            openStore().setValue(key, true);
            EXPECT_THAT(log.lines, IsEmpty());
        };
        const auto first = startInChild([&keep] { keep("first"); });
        const auto second = startInChild([&keep] { keep("second"); });
        EXPECT_FALSE(waitForChild(first).failed);
        EXPECT_FALSE(waitForChild(second).failed);
        ASSERT_EQ(openStore().entries().size(), 2u) << "round " << round;
    }
}

/// How many whole records "{N}" there are in "[{0}{1}…]"; negative for any other text.
long countRecords(std::string_view text) {
    if (!text.starts_with('[') || !text.ends_with(']'))
        return -1;
    text = text.substr(1, text.size() - 2);
    long count = 0;
    while (!text.empty()) {
        const std::string record = "{" + std::string(300, 'x') + std::to_string(count) + "}";
        if (!text.starts_with(record))
            return -1;
        text.remove_prefix(record.size());
        ++count;
    }
    return count;
}

[[noreturn]] void appendForEver(LargeValueStore& store, SharedCounter& acknowledged) {
    std::string value = dataValue(store, "records").value_or("[]");
    store.setValue("records", Data{value});
    for (long number = countRecords(value);; ++number) {
        const std::string tail = "{" + std::string(300, 'x') + std::to_string(number) + "}]";
        if (!replaceTail(store, "records", value.size() - 1, tail))
            ::_exit(1);
        value.replace(value.size() - 1, 1, tail);
        acknowledged.set(number + 1);
    }
}

TEST_F(SqliteHardship, suddenDeathLosesNoAcknowledgedTail) {
    SharedCounter acknowledged;
    for (int kill = 0; kill < 20; ++kill) {
        killWhileWorking(acknowledged, acknowledged.value() + 150, [&] {
            auto store = openStore();
            appendForEver(store, acknowledged);
        });
        const long found = countRecords(dataValue(openStore(), "records").value_or(""));
        ASSERT_GE(found, acknowledged.value()) << "after kill " << kill;
        ASSERT_LE(found, acknowledged.value() + 1);
    }
    EXPECT_GT(acknowledged.value(), 3000);
    EXPECT_THAT(log.lines, IsEmpty());
}

} // namespace
} // namespace brisklog::test
