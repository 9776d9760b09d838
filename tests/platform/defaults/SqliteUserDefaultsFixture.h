#pragma once

#include "platform/defaults/SqliteUserDefaults.h"
#include "support/FakeClock.h"
#include "support/RecordingLog.h"
#include "support/StoredData.h"
#include "support/TemporaryHome.h"

#include <gtest/gtest.h>

namespace brisklog::test {

/// User defaults in a temporary home.
class SqliteDefaults : public ::testing::Test {
public:
    [[nodiscard]] SqliteUserDefaults openStore() { return {file(), clock, log}; }

    [[nodiscard]] std::filesystem::path file() const { return home.configuration() / "defaults.sqlite"; }

    /// The names in the store's folder that start with `beginning`, sorted.
    [[nodiscard]] std::vector<std::string> filesStartingWith(std::string_view beginning) const;

    /// Stores a short text and 200,000 bytes of data, and closes the store again.
    void storeSomething();

    /// Makes the file as the version without pieces would have, holding a short text and
    /// `earlierVersionsData()`.
    void makeEarlierVersionsStore();

    TemporaryHome home;
    FakeClock clock;
    RecordingLog log;
};

/// Bytes whose pattern changes throughout.
[[nodiscard]] std::string variedBytes(std::size_t size);

/// Base64 digits that are different for every number.
[[nodiscard]] std::string base64Digits(std::size_t size, unsigned number);

[[nodiscard]] std::string earlierVersionsData();

} // namespace brisklog::test
