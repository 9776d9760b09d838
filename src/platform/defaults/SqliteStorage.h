#pragma once

#include "platform/Clock.h"
#include "platform/Log.h"
#include "platform/defaults/SqliteDatabase.h"

#include <filesystem>
#include <memory>
#include <optional>
#include <string_view>
#include <type_traits>

namespace brisklog {

/// The database behind the user defaults: opened when first needed, replaced when broken, in memory when
/// there is no other way.
class SqliteStorage {
public:
    enum class Purpose {
        reading,  ///< does nothing without a database
        changing, ///< likewise: changes only existing values
        writing,  ///< creates the database if there is none
    };

    SqliteStorage(std::optional<std::filesystem::path> file, const Clock& clock, Log& log);

    /// Opens the database unless it is open and returns the result of `ask`; an empty one if there is no
    /// database. If the database turns out to be broken, tries again with a new one. Absent on failure, which
    /// is printed together with `what`.
    template <class Ask, class Answer = std::invoke_result_t<Ask, SqliteDatabase&>>
    std::optional<Answer> perform(Purpose purpose, std::string_view what, const Ask& ask) {
        m_hasChanges |= purpose != Purpose::reading;
        for (int place = 0; place < placesToTry; ++place) {
            Failure failure = open(purpose);
            if (!failure && !m_database)
                return Answer{};
            if (!failure) {
                Answer answer = ask(*m_database);
                failure = m_database->takeFailure();
                if (!failure)
                    return answer;
            }
            if (!replaceIfBroken(*failure, purpose, what))
                break;
        }
        return std::nullopt;
    }

    /// Syncs all changes made since the last call to the medium.
    void synchronise();

private:
    using Failure = std::optional<SqliteFailure>;

    /// The file, a new file in its place, and memory.
    static constexpr int placesToTry = 3;

    [[nodiscard]] Failure open(Purpose purpose);
    [[nodiscard]] Failure openDatabase(SqliteDatabase::Locking locking);
    [[nodiscard]] Failure makeFile() const;
    [[nodiscard]] bool replaceIfBroken(const SqliteFailure& failure, Purpose purpose, std::string_view what);
    void replaceBroken(const SqliteFailure& failure);
    [[nodiscard]] std::filesystem::path freeNameForBroken() const;

    /// Absent when the database is in memory.
    std::optional<std::filesystem::path> m_file;
    const Clock& m_clock;
    Log& m_log;
    std::unique_ptr<SqliteDatabase> m_database;
    bool m_hasChanges = false;
};

} // namespace brisklog
