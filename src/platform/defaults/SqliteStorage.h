#pragma once

#include "platform/defaults/SqliteDatabase.h"
#include "platform/defaults/SqliteUserDefaults.h"
#include "platform/defaults/SqliteValues.h"

#include <functional>

namespace brisklog {

/// The database behind the user defaults: opened when first needed, replaced when broken, in memory when
/// there is no other way.
class SqliteUserDefaults::Storage {
public:
    enum class Outcome {
        done,
        nothingThere, ///< there is no database
        failed,       ///< which is printed with what was accessed
    };

    /// What is done with the open database; done again on a fresh one when the first turns out to be broken.
    using Access = std::function<void(SqliteDatabase&)>;

    Storage(std::optional<std::filesystem::path> file, const Clock& clock, Log& log);

    /// Runs `access` unless there is no database.
    Outcome read(std::string_view what, const Access& access);

    /// Runs `access`, making the database when there is none.
    Outcome write(std::string_view what, const Access& access);

    /// The same for what changes only what is there: without a database nothing happens.
    Outcome change(std::string_view what, const Access& access);

    /// Brings all changes made since the last call to the medium.
    void synchronise();

private:
    enum class WhenMissing { give, make };

    using Failure = std::optional<SqliteFailure>;

    Outcome perform(WhenMissing whenMissing, std::string_view complaint, const Access& access);
    [[nodiscard]] Failure open(WhenMissing whenMissing);
    [[nodiscard]] Failure openDatabase(SqliteDatabase::Locking locking);
    [[nodiscard]] Failure makeFile() const;
    void replaceBroken(const SqliteFailure& failure);
    [[nodiscard]] std::filesystem::path freeNameForBroken() const;

    /// None: the database is in memory.
    std::optional<std::filesystem::path> m_file;
    const Clock& m_clock;
    Log& m_log;
    std::unique_ptr<SqliteDatabase> m_database;
    bool m_hasChanges = false;
};

} // namespace brisklog
