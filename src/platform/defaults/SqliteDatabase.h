#pragma once

#include <cstdint>
#include <map>
#include <optional>
#include <string>
#include <string_view>

struct sqlite3;
struct sqlite3_stmt;

namespace brisklog {

class SqliteQuery;

/// Why SQLite could not do something.
struct SqliteFailure {
    /// SQLite's extended result code.
    int code;
    /// The underlying system error number; 0 when there is none.
    int systemError;
    std::string description;

    enum class Cause {
        file,         ///< broken, foreign or not ours to use
        otherProcess, ///< it held the lock
        memory,       ///< none left, or so it seemed: a broken file can make SQLite ask for too much
        sharedMemory, ///< shared memory could not be created (for example on a full disk)
        passing,      ///< anything else that says nothing about the file, such as a full disk
    };

    [[nodiscard]] Cause cause() const;
};

/// One open SQLite database. It caches its prepared statements and keeps the first failure until it is taken.
class SqliteDatabase {
public:
    enum class Locking {
        shared,    ///< other processes can use the file at the same time
        exclusive, ///< they cannot, but no shared memory is needed
    };

    /// Opens or creates the file; ":memory:" lasts as long as the object. A failure is kept like any other.
    SqliteDatabase(const std::string& name, Locking locking);
    ~SqliteDatabase();
    SqliteDatabase(const SqliteDatabase&) = delete;
    SqliteDatabase& operator=(const SqliteDatabase&) = delete;

    /// Prepares a statement to be bound and stepped. The text must outlive the database; each statement
    /// serves only one query at a time.
    [[nodiscard]] SqliteQuery query(const char* sql);

    /// Runs statements without parameters; false on failure.
    bool run(const char* sql);

    /// The first column of the first row; absent on failure or without a row.
    [[nodiscard]] std::optional<std::int64_t> integer(const char* sql);

    /// Checkpoints the write-ahead log, syncing both files to the medium; false on failure.
    bool checkpoint();

    /// From now on, closing does not change the files.
    void leaveFilesAlone();

    /// Records that the content is not what we would have written.
    void failAsCorrupt(std::string_view description);

    /// Records a failure, unless there is one already.
    void fail(SqliteFailure failure);

    [[nodiscard]] bool hasFailed() const { return m_failure.has_value(); }

    /// The first failure since the last call.
    [[nodiscard]] std::optional<SqliteFailure> takeFailure();

private:
    friend class SqliteQuery;
    friend class SqliteTransaction;

    void noteFailure(int code);

    sqlite3* m_connection = nullptr;
    std::map<const char*, sqlite3_stmt*> m_statements;
    std::optional<SqliteFailure> m_failure;
};

/// One use of a prepared statement. Parameters count from 1, columns from 0; bound bytes are not copied and
/// must outlive this object.
class SqliteQuery {
public:
    SqliteQuery(SqliteDatabase& database, sqlite3_stmt* statement);
    ~SqliteQuery();
    SqliteQuery(const SqliteQuery&) = delete;
    SqliteQuery& operator=(const SqliteQuery&) = delete;

    SqliteQuery& bindText(int parameter, std::string_view text);
    SqliteQuery& bindBytes(int parameter, std::string_view bytes);
    SqliteQuery& bindInteger(int parameter, std::int64_t number);
    SqliteQuery& bindNumber(int parameter, double number);

    /// Steps to the next row; false at the end and on failure.
    bool next();

    /// Steps to the end; false on failure.
    bool run();

    enum class Kind { integer, number, text, bytes, null };

    [[nodiscard]] Kind kind(int column) const;
    [[nodiscard]] std::int64_t integer(int column) const;
    [[nodiscard]] double number(int column) const;
    /// The bytes of a text or blob; valid until the next step.
    [[nodiscard]] std::string_view bytes(int column) const;

private:
    void check(int code);

    SqliteDatabase& m_database;
    sqlite3_stmt* m_statement;
};

/// An atomic set of changes, rolled back unless committed.
class SqliteTransaction {
public:
    explicit SqliteTransaction(SqliteDatabase& database);
    ~SqliteTransaction();
    SqliteTransaction(const SqliteTransaction&) = delete;
    SqliteTransaction& operator=(const SqliteTransaction&) = delete;

    /// False when anything has failed since the beginning; everything is then rolled back.
    bool commit();

private:
    SqliteDatabase& m_database;
    bool m_isOpen;
};

} // namespace brisklog
