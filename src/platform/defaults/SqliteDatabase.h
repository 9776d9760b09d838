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
    /// The system's error number behind it; 0 when there is none.
    int systemError;
    std::string description;

    enum class Cause {
        file,         ///< broken, foreign or not ours to use
        otherProcess, ///< it was in the way
        memory,       ///< there was none, or so it looked: a broken file can have SQLite ask for too much
        sharedMemory, ///< what processes share could not be made (a full disk does that)
        passing,      ///< anything else that says nothing about the file, as a full disk
    };

    [[nodiscard]] Cause cause() const;
};

/// One open SQLite database. It keeps its prepared statements, and the first failure until that is taken.
class SqliteDatabase {
public:
    enum class Locking {
        shared,    ///< other processes can use the file meanwhile
        exclusive, ///< they cannot; needs no shared memory
    };

    /// Opens the file, or makes it; ":memory:" lasts as long as the object. A failure is kept like any other.
    SqliteDatabase(const std::string& name, Locking locking);
    ~SqliteDatabase();
    SqliteDatabase(const SqliteDatabase&) = delete;
    SqliteDatabase& operator=(const SqliteDatabase&) = delete;

    /// A statement whose text outlives the database, ready to be bound and stepped. One at a time of each.
    [[nodiscard]] SqliteQuery query(const char* sql);

    /// Runs statements without parameters; false on failure.
    bool run(const char* sql);

    /// The first column of the first row; absent on failure or without a row.
    [[nodiscard]] std::optional<std::int64_t> integer(const char* sql);

    /// Copies the log of changes into the file, both through to the medium; false on failure.
    bool checkpoint();

    /// From now on closing changes nothing in the files.
    void leaveFilesAlone();

    /// Notes that the content is not what we would have written.
    void failAsCorrupt(std::string_view description);

    /// Notes a failure, unless there is one already.
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
/// must live as long as the use.
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
    /// Of a text or of bytes; valid until the next step.
    [[nodiscard]] std::string_view bytes(int column) const;

private:
    void check(int code);

    SqliteDatabase& m_database;
    sqlite3_stmt* m_statement;
};

/// Changes that are made together or not at all; undone unless committed.
class SqliteTransaction {
public:
    explicit SqliteTransaction(SqliteDatabase& database);
    ~SqliteTransaction();
    SqliteTransaction(const SqliteTransaction&) = delete;
    SqliteTransaction& operator=(const SqliteTransaction&) = delete;

    /// False when something failed since the beginning; everything is undone then.
    bool commit();

private:
    SqliteDatabase& m_database;
    bool m_isOpen;
};

} // namespace brisklog
