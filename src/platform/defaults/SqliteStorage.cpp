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

/// The file, a fresh file in its place, and memory.
constexpr int placesToTry = 3;

/// How long opening waits for another process.
constexpr std::chrono::seconds longestWait{1};
constexpr int millisecondsBetweenTries = 10;

/// What SQLite keeps beside a database.
constexpr std::array companions{"-wal", "-shm", "-journal"};

fs::path withEnding(const fs::path& path, const std::string& ending) { return path.string() + ending; }

SqliteFailure cannotOpen(int systemError) {
    return {SQLITE_CANTOPEN, systemError, std::strerror(systemError)};
}

/// Whether there is memory enough to open a database, just now.
bool isMemoryThere() {
    SqliteDatabase database(":memory:", SqliteDatabase::Locking::shared);
    sqlite_layout::prepare(database);
    return !database.hasFailed();
}

/// Renames the database with what belongs to it; false when that cannot be. One that is gone is no failure.
bool moveAway(const fs::path& file, const fs::path& target) {
    if (::rename(file.c_str(), target.c_str()) != 0 && errno != ENOENT)
        return false;
    std::error_code ignored;
    for (const char* const ending : companions)
        fs::rename(withEnding(file, ending), withEnding(target, ending), ignored);
    return true;
}

} // namespace

SqliteUserDefaults::Storage::Storage(std::optional<fs::path> file, const Clock& clock, Log& log)
    : m_file(std::move(file)), m_clock(clock), m_log(log) {}

SqliteUserDefaults::Storage::Outcome SqliteUserDefaults::Storage::read(std::string_view what,
                                                                       const Access& access) {
    return perform(WhenMissing::give, "Error reading user defaults: " + std::string(what), access);
}

SqliteUserDefaults::Storage::Outcome SqliteUserDefaults::Storage::write(std::string_view what,
                                                                        const Access& access) {
    m_hasChanges = true;
    return perform(WhenMissing::make, "Error writing user defaults: " + std::string(what), access);
}

SqliteUserDefaults::Storage::Outcome SqliteUserDefaults::Storage::change(std::string_view what,
                                                                         const Access& access) {
    m_hasChanges = true;
    return perform(WhenMissing::give, "Error writing user defaults: " + std::string(what), access);
}

void SqliteUserDefaults::Storage::synchronise() {
    if (!m_hasChanges || !m_database)
        return;
    m_hasChanges = perform(WhenMissing::give, "Error writing user defaults",
                           [](SqliteDatabase& database) { database.checkpoint(); }) != Outcome::done;
}

SqliteUserDefaults::Storage::Outcome SqliteUserDefaults::Storage::perform(WhenMissing whenMissing,
                                                                          std::string_view complaint,
                                                                          const Access& access) {
    for (int place = 0; place < placesToTry; ++place) {
        Failure failure = open(whenMissing);
        if (!failure && !m_database)
            return Outcome::nothingThere;
        if (!failure) {
            access(*m_database);
            failure = m_database->takeFailure();
        }
        if (!failure)
            return Outcome::done;
        if (failure->cause() != Cause::file) {
            m_log.print(std::string(complaint) + ": " + failure->description);
            return Outcome::failed;
        }
        replaceBroken(*failure);
    }
    return Outcome::failed;
}

/// Opens the database unless it is open. Neither a failure nor a database means that there is none to open.
SqliteUserDefaults::Storage::Failure SqliteUserDefaults::Storage::open(WhenMissing whenMissing) {
    if (m_database)
        return std::nullopt;
    if (m_file && !PosixFiles().exists(*m_file)) {
        if (whenMissing == WhenMissing::give)
            return std::nullopt;
        if (auto failure = makeFile())
            return failure;
    }
    auto failure = openDatabase(SqliteDatabase::Locking::shared);
    // Two processes that make the file at the same moment are turned away at once instead of waiting.
    const auto deadline = std::chrono::steady_clock::now() + longestWait;
    while (failure && failure->cause() == Cause::otherProcess &&
           std::chrono::steady_clock::now() < deadline) {
        sqlite3_sleep(millisecondsBetweenTries);
        failure = openDatabase(SqliteDatabase::Locking::shared);
    }
    // On a full disk what is stored can still be read this way; taken for absent, it might be overwritten.
    if (failure && failure->cause() == Cause::sharedMemory)
        failure = openDatabase(SqliteDatabase::Locking::exclusive);
    return failure;
}

SqliteUserDefaults::Storage::Failure
SqliteUserDefaults::Storage::openDatabase(SqliteDatabase::Locking locking) {
    std::error_code ignored;
    if (m_file && fs::exists(*m_file, ignored) && !fs::is_regular_file(*m_file, ignored))
        return SqliteFailure{SQLITE_CANTOPEN, 0, "not a regular file"};
    auto database = std::make_unique<SqliteDatabase>(m_file ? m_file->string() : ":memory:", locking);
    sqlite_layout::prepare(*database);
    auto failure = database->takeFailure();
    // Taken at its word, a file broken in this way would be in the way at every start.
    if (failure && failure->cause() == Cause::memory && isMemoryThere())
        failure->code = SQLITE_CORRUPT;
    if (failure)
        database->leaveFilesAlone();
    else
        m_database = std::move(database);
    return failure;
}

/// Makes the empty file readable for its owner alone; SQLite gives its companions the same mode.
SqliteUserDefaults::Storage::Failure SqliteUserDefaults::Storage::makeFile() const {
    if (PosixFiles().createFolder(m_file->parent_path()).failed())
        return cannotOpen(errno);
    const int descriptor = ::open(m_file->c_str(), O_RDWR | O_CREAT | O_EXCL | O_CLOEXEC, 0600);
    if (descriptor < 0 && errno != EEXIST)
        return cannotOpen(errno);
    if (descriptor >= 0)
        ::close(descriptor);
    return std::nullopt;
}

void SqliteUserDefaults::Storage::replaceBroken(const SqliteFailure& failure) {
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

fs::path SqliteUserDefaults::Storage::freeNameForBroken() const {
    const auto name = withEnding(*m_file, ".broken-" + std::to_string(millisecondsSince1970(m_clock.now())));
    fs::path free = name;
    for (int number = 2; number < 1000 && PosixFiles().exists(free); ++number)
        free = withEnding(name, "-" + std::to_string(number));
    return free;
}

} // namespace brisklog
