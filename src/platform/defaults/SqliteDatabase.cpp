#include "platform/defaults/SqliteDatabase.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <sqlite3.h>
#include <utility>

namespace brisklog {
namespace {

/// How long a call waits while another process is writing.
constexpr int busyMilliseconds = 2000;

constexpr const char* configure = "PRAGMA synchronous = NORMAL;"
                                  "PRAGMA journal_size_limit = 4194304;"
                                  "PRAGMA cell_size_check = ON;"
                                  "PRAGMA trusted_schema = OFF;";

/// The largest row, and so the most memory that a broken one can make us allocate.
constexpr int mostBytesInRow = 1 << 28;

template <std::size_t Count>
bool isOneOf(const std::array<int, Count>& codes, int code) {
    return std::ranges::find(codes, code) != codes.end();
}

constexpr std::array unreadableFile{SQLITE_IOERR_READ, SQLITE_IOERR_SHORT_READ, SQLITE_IOERR_DATA,
                                    SQLITE_IOERR_CORRUPTFS};

constexpr std::array noSharedMemory{SQLITE_IOERR_SHMOPEN, SQLITE_IOERR_SHMSIZE, SQLITE_IOERR_SHMMAP,
                                    SQLITE_IOERR_SHMLOCK};

/// Temporary system errors, which say nothing about the file.
constexpr std::array shortages{EMFILE, ENFILE, ENOMEM, ENOSPC, EDQUOT, EAGAIN, EINTR};

} // namespace

SqliteFailure::Cause SqliteFailure::cause() const {
    if (isOneOf(unreadableFile, code))
        return Cause::file;
    if (isOneOf(noSharedMemory, code))
        return Cause::sharedMemory;
    switch (code & 0xFF) {
    case SQLITE_BUSY:
        return Cause::otherProcess;
    case SQLITE_NOMEM:
        return Cause::memory;
    case SQLITE_CANTOPEN:
        return isOneOf(shortages, systemError) ? Cause::passing : Cause::file;
    case SQLITE_LOCKED:
    case SQLITE_FULL:
    case SQLITE_INTERRUPT:
    case SQLITE_TOOBIG:
    case SQLITE_PROTOCOL:
    case SQLITE_IOERR:
        return Cause::passing;
    default:
        return Cause::file;
    }
}

SqliteDatabase::SqliteDatabase(const std::string& name, Locking locking) {
    const int flags =
        SQLITE_OPEN_READWRITE | SQLITE_OPEN_CREATE | SQLITE_OPEN_NOMUTEX | SQLITE_OPEN_EXRESCODE;
    if (const int code = sqlite3_open_v2(name.c_str(), &m_connection, flags, nullptr); code != SQLITE_OK) {
        noteFailure(code);
        return;
    }
    sqlite3_busy_timeout(m_connection, busyMilliseconds);
    sqlite3_limit(m_connection, SQLITE_LIMIT_LENGTH, mostBytesInRow);
    // We create neither views nor triggers; in a tampered file they could run for ever.
    sqlite3_db_config(m_connection, SQLITE_DBCONFIG_ENABLE_VIEW, 0, nullptr);
    sqlite3_db_config(m_connection, SQLITE_DBCONFIG_ENABLE_TRIGGER, 0, nullptr);
    if (locking == Locking::exclusive && !run("PRAGMA locking_mode = EXCLUSIVE"))
        return;
    run(configure);
}

SqliteDatabase::~SqliteDatabase() {
    for (const auto& [sql, statement] : m_statements)
        sqlite3_finalize(statement);
    sqlite3_close(m_connection);
}

SqliteQuery SqliteDatabase::query(const char* sql) {
    sqlite3_stmt*& statement = m_statements[sql];
    if (statement == nullptr && m_connection != nullptr)
        if (const int code =
                sqlite3_prepare_v3(m_connection, sql, -1, SQLITE_PREPARE_PERSISTENT, &statement, nullptr);
            code != SQLITE_OK)
            noteFailure(code);
    return {*this, statement};
}

bool SqliteDatabase::run(const char* sql) {
    if (m_connection == nullptr)
        return false;
    const int code = sqlite3_exec(m_connection, sql, nullptr, nullptr, nullptr);
    if (code != SQLITE_OK)
        noteFailure(code);
    return code == SQLITE_OK;
}

std::optional<std::int64_t> SqliteDatabase::integer(const char* sql) {
    SqliteQuery query = this->query(sql);
    return query.next() ? std::optional(query.integer(0)) : std::nullopt;
}

bool SqliteDatabase::checkpoint() {
    const int code =
        sqlite3_wal_checkpoint_v2(m_connection, nullptr, SQLITE_CHECKPOINT_FULL, nullptr, nullptr);
    if (code != SQLITE_OK)
        noteFailure(code);
    return code == SQLITE_OK;
}

void SqliteDatabase::leaveFilesAlone() {
    if (m_connection != nullptr)
        sqlite3_db_config(m_connection, SQLITE_DBCONFIG_NO_CKPT_ON_CLOSE, 1, nullptr);
}

void SqliteDatabase::failAsCorrupt(std::string_view description) {
    fail({SQLITE_CORRUPT, 0, std::string(description)});
}

void SqliteDatabase::fail(SqliteFailure failure) {
    if (!m_failure)
        m_failure = std::move(failure);
}

std::optional<SqliteFailure> SqliteDatabase::takeFailure() { return std::exchange(m_failure, std::nullopt); }

void SqliteDatabase::noteFailure(int code) {
    if (m_connection == nullptr)
        fail({code, 0, sqlite3_errstr(code)});
    else
        fail({code, sqlite3_system_errno(m_connection), sqlite3_errmsg(m_connection)});
}

SqliteQuery::SqliteQuery(SqliteDatabase& database, sqlite3_stmt* statement)
    : m_database(database), m_statement(statement) {}

SqliteQuery::~SqliteQuery() {
    if (m_statement == nullptr)
        return;
    sqlite3_reset(m_statement);
    sqlite3_clear_bindings(m_statement);
}

SqliteQuery& SqliteQuery::bindText(int parameter, std::string_view text) {
    // An empty view may hold a null pointer, which would bind NULL.
    const char* const address = text.empty() ? "" : text.data();
    if (m_statement != nullptr)
        check(sqlite3_bind_text64(m_statement, parameter, address, text.size(), SQLITE_STATIC, SQLITE_UTF8));
    return *this;
}

SqliteQuery& SqliteQuery::bindBytes(int parameter, std::string_view bytes) {
    const char* const address = bytes.empty() ? "" : bytes.data();
    if (m_statement != nullptr)
        check(sqlite3_bind_blob64(m_statement, parameter, address, bytes.size(), SQLITE_STATIC));
    return *this;
}

SqliteQuery& SqliteQuery::bindInteger(int parameter, std::int64_t number) {
    if (m_statement != nullptr)
        check(sqlite3_bind_int64(m_statement, parameter, number));
    return *this;
}

SqliteQuery& SqliteQuery::bindNumber(int parameter, double number) {
    if (m_statement != nullptr)
        check(sqlite3_bind_double(m_statement, parameter, number));
    return *this;
}

bool SqliteQuery::next() {
    if (m_statement == nullptr || m_database.hasFailed())
        return false;
    const int code = sqlite3_step(m_statement);
    if (code != SQLITE_ROW)
        check(code);
    return code == SQLITE_ROW;
}

bool SqliteQuery::run() {
    while (next()) {
    }
    return m_statement != nullptr && !m_database.hasFailed();
}

SqliteQuery::Kind SqliteQuery::kind(int column) const {
    switch (sqlite3_column_type(m_statement, column)) {
    case SQLITE_INTEGER:
        return Kind::integer;
    case SQLITE_FLOAT:
        return Kind::number;
    case SQLITE_TEXT:
        return Kind::text;
    case SQLITE_BLOB:
        return Kind::bytes;
    default:
        return Kind::null;
    }
}

std::int64_t SqliteQuery::integer(int column) const { return sqlite3_column_int64(m_statement, column); }

double SqliteQuery::number(int column) const { return sqlite3_column_double(m_statement, column); }

std::string_view SqliteQuery::bytes(int column) const {
    const void* const address = sqlite3_column_blob(m_statement, column);
    const int size = sqlite3_column_bytes(m_statement, column);
    return {static_cast<const char*>(address), static_cast<std::size_t>(size)};
}

void SqliteQuery::check(int code) {
    if (code != SQLITE_OK && code != SQLITE_DONE)
        m_database.noteFailure(code);
}

SqliteTransaction::SqliteTransaction(SqliteDatabase& database)
    : m_database(database), m_isOpen(database.query("BEGIN IMMEDIATE").run()) {}

SqliteTransaction::~SqliteTransaction() {
    // After some failures SQLite has already rolled back; this then fails harmlessly.
    if (m_isOpen)
        sqlite3_exec(m_database.m_connection, "ROLLBACK", nullptr, nullptr, nullptr);
}

bool SqliteTransaction::commit() {
    if (m_isOpen && !m_database.hasFailed() && m_database.query("COMMIT").run())
        m_isOpen = false;
    return !m_isOpen;
}

} // namespace brisklog
