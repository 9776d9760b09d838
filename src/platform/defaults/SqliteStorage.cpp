#include "platform/defaults/SqliteStorage.h"

#include "platform/defaults/SqliteLayout.h"
#include "platform/files/PosixFiles.h"

#include <array>
#include <cerrno>
#include <chrono>
#include <cstring>
#include <fcntl.h>
#include <sqlite3.h>
#include <system_error>
#include <unistd.h>
#include <utility>

namespace brisklog {

namespace fs = std::filesystem;

namespace {

using Cause = SqliteFailure::Cause;

/// How long opening waits for another process.
constexpr std::chrono::seconds longestWait{1};
constexpr int millisecondsBetweenTries = 10;

/// The files that SQLite keeps beside a database.
constexpr std::array companions{"-wal", "-shm", "-journal"};

fs::path withEnding(const fs::path& path, const std::string& ending) { return path.string() + ending; }

SqliteFailure cannotOpen(int systemError) {
    return {SQLITE_CANTOPEN, systemError, std::strerror(systemError)};
}

/// Whether there is currently enough memory to open a database.
bool isMemoryAvailable() {
    SqliteDatabase database(":memory:", SqliteDatabase::Locking::shared);
    sqlite_layout::prepare(database);
    return !database.hasFailed();
}

/// Renames the database with its companions; false when that fails. A missing database is not a failure.
bool moveAway(const fs::path& file, const fs::path& target) {
    if (::rename(file.c_str(), target.c_str()) != 0 && errno != ENOENT)
        return false;
    std::error_code ignored;
    for (const char* const ending : companions)
        fs::rename(withEnding(file, ending), withEnding(target, ending), ignored);
    return true;
}

} // namespace

SqliteStorage::SqliteStorage(std::optional<fs::path> file, const Clock& clock, Log& log)
    : m_file(std::move(file)), m_clock(clock), m_log(log) {}

void SqliteStorage::synchronise() {
    if (!m_hasChanges || !m_database)
        return;
    const auto isDone =
        perform(Purpose::changing, {}, [](SqliteDatabase& database) { return database.checkpoint(); });
    m_hasChanges = !isDone.value_or(false);
}

/// Opens the database unless it is open. If there is then neither a failure nor a database, there is none to
/// open.
SqliteStorage::Failure SqliteStorage::open(Purpose purpose) {
    if (m_database)
        return std::nullopt;
    if (m_file && !PosixFiles().exists(*m_file)) {
        if (purpose != Purpose::writing)
            return std::nullopt;
        if (auto failure = makeFile())
            return failure;
    }
    auto failure = openDatabase(SqliteDatabase::Locking::shared);
    // When two processes create the file at the same time, SQLite reports it busy at once instead of waiting.
    const auto deadline = std::chrono::steady_clock::now() + longestWait;
    while (failure && failure->cause() == Cause::otherProcess &&
           std::chrono::steady_clock::now() < deadline) {
        sqlite3_sleep(millisecondsBetweenTries);
        failure = openDatabase(SqliteDatabase::Locking::shared);
    }
    // On a full disk, stored values can still be read this way; if treated as absent, they might be
    // overwritten.
    if (failure && failure->cause() == Cause::sharedMemory)
        failure = openDatabase(SqliteDatabase::Locking::exclusive);
    return failure;
}

SqliteStorage::Failure SqliteStorage::openDatabase(SqliteDatabase::Locking locking) {
    std::error_code ignored;
    if (m_file && fs::exists(*m_file, ignored) && !fs::is_regular_file(*m_file, ignored))
        return SqliteFailure{SQLITE_CANTOPEN, 0, "not a regular file"};
    auto database = std::make_unique<SqliteDatabase>(m_file ? m_file->string() : ":memory:", locking);
    sqlite_layout::prepare(*database);
    auto failure = database->takeFailure();
    // If this error were believed, a file broken in this way would block every start.
    if (failure && failure->cause() == Cause::memory && isMemoryAvailable())
        failure->code = SQLITE_CORRUPT;
    if (failure)
        database->leaveFilesAlone();
    else
        m_database = std::move(database);
    return failure;
}

/// Creates the empty file, readable only by its owner; SQLite gives its companions the same mode.
SqliteStorage::Failure SqliteStorage::makeFile() const {
    if (PosixFiles().createFolder(m_file->parent_path()).failed())
        return cannotOpen(errno);
    const int descriptor = ::open(m_file->c_str(), O_RDWR | O_CREAT | O_EXCL | O_CLOEXEC, 0600);
    if (descriptor < 0 && errno != EEXIST)
        return cannotOpen(errno);
    if (descriptor >= 0)
        ::close(descriptor);
    return std::nullopt;
}

/// Replaces a broken file and returns whether another try is worthwhile; prints any other failure.
bool SqliteStorage::replaceIfBroken(const SqliteFailure& failure, Purpose purpose, std::string_view what) {
    if (failure.cause() == Cause::file) {
        replaceBroken(failure);
        return true;
    }
    const std::string verb = purpose == Purpose::reading ? "reading" : "writing";
    m_log.print("Error " + verb + " user defaults" + (what.empty() ? "" : ": ") + std::string(what) + ": " +
                failure.description);
    return false;
}

void SqliteStorage::replaceBroken(const SqliteFailure& failure) {
    if (m_database)
        m_database->leaveFilesAlone();
    m_database.reset();
    if (!m_file)
        return;
    const fs::path target = freeNameForBroken();
    const bool isThere = PosixFiles().exists(*m_file);
    const std::string complaint =
        "Error opening user defaults: " + m_file->string() + ": " + failure.description;
    if (isThere && moveAway(*m_file, target)) {
        m_log.print(complaint + "; kept as " + target.filename().string());
        return;
    }
    m_file.reset();
    m_log.print(complaint + "; values last until the program ends");
}

fs::path SqliteStorage::freeNameForBroken() const {
    const auto name = withEnding(*m_file, ".broken-" + std::to_string(millisecondsSince1970(m_clock.now())));
    fs::path free = name;
    for (int number = 2; number < 1000 && PosixFiles().exists(free); ++number)
        free = withEnding(name, "-" + std::to_string(number));
    return free;
}

} // namespace brisklog
