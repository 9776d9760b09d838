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
        reading,  ///< without a database nothing happens
        changing, ///< the same: only what is there is changed
        writing,  ///< the database is made when there is none
    };

    SqliteStorage(std::optional<std::filesystem::path> file, const Clock& clock, Log& log);

    /// Opens the database unless it is open, and gives the answer it has; an empty one where there is no
    /// database. When the database turns out to be broken a fresh one is asked again. Nothing when it failed,
    /// which is printed with `what` it was about.
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

    /// Brings all changes made since the last call to the medium.
    void synchronise();

private:
    using Failure = std::optional<SqliteFailure>;

    /// The file, a fresh file in its place, and memory.
    static constexpr int placesToTry = 3;

    [[nodiscard]] Failure open(Purpose purpose);
    [[nodiscard]] Failure openDatabase(SqliteDatabase::Locking locking);
    [[nodiscard]] Failure makeFile() const;
    [[nodiscard]] bool replaceIfBroken(const SqliteFailure& failure, Purpose purpose, std::string_view what);
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
