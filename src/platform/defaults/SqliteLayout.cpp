#include "platform/defaults/SqliteLayout.h"

#include "platform/defaults/SqliteDatabase.h"

namespace brisklog::sqlite_layout {
namespace {

enum class Content { none, earlier, ours, foreign };

constexpr std::int64_t version = 2;
constexpr std::int64_t versionWithoutPieces = 1;

constexpr const char* makeTables =
    "BEGIN IMMEDIATE;"
    "CREATE TABLE value (id INTEGER PRIMARY KEY, key TEXT NOT NULL UNIQUE, type INTEGER NOT NULL,"
    "                    size INTEGER NOT NULL, content);"
    "CREATE TABLE chunk (place INTEGER PRIMARY KEY, bytes BLOB NOT NULL, piece INTEGER);"
    "CREATE INDEX chunkPiece ON chunk (piece) WHERE piece IS NOT NULL;"
    "CREATE TABLE piece (id INTEGER PRIMARY KEY, hash INTEGER NOT NULL, bytes BLOB NOT NULL);"
    "CREATE INDEX pieceHash ON piece (hash);"
    "PRAGMA user_version = 2;"
    "COMMIT;";

/// Existing chunks stay as they are; those written from now on may refer to pieces.
constexpr const char* addPieces =
    "BEGIN IMMEDIATE;"
    "ALTER TABLE chunk ADD COLUMN piece INTEGER;"
    "CREATE INDEX chunkPiece ON chunk (piece) WHERE piece IS NOT NULL;"
    "CREATE TABLE piece (id INTEGER PRIMARY KEY, hash INTEGER NOT NULL, bytes BLOB NOT NULL);"
    "CREATE INDEX pieceHash ON piece (hash);"
    "PRAGMA user_version = 2;"
    "COMMIT;";

Content lookAtContent(SqliteDatabase& database) {
    // In one statement, because another process may be creating the tables right now.
    SqliteQuery query =
        database.query("SELECT user_version, (SELECT count(*) FROM sqlite_schema) FROM pragma_user_version");
    if (!query.next() || query.integer(0) == version)
        return Content::ours;
    if (query.integer(0) == versionWithoutPieces)
        return Content::earlier;
    return query.integer(0) == 0 && query.integer(1) == 0 ? Content::none : Content::foreign;
}

void change(SqliteDatabase& database, const char* statements) {
    if (database.hasFailed() || database.run(statements))
        return;
    // Another process may have done it since we looked.
    const auto failure = database.takeFailure();
    database.run("ROLLBACK");
    (void)database.takeFailure();
    if (lookAtContent(database) != Content::ours)
        database.fail(*failure);
}

/// A key missing from its index would be stored twice, or stored and never found again. The list of values is
/// short, however large they are, so checking it costs next to nothing.
void checkKeys(SqliteDatabase& database) {
    SqliteQuery query = database.query("PRAGMA integrity_check('value')");
    if (query.next() && query.bytes(0) != "ok")
        database.failAsCorrupt(query.bytes(0));
}

} // namespace

void prepare(SqliteDatabase& database) {
    switch (lookAtContent(database)) {
    case Content::ours:
        checkKeys(database);
        return;
    case Content::foreign:
        database.failAsCorrupt("not a store this version can read");
        return;
    case Content::earlier:
        checkKeys(database);
        change(database, addPieces);
        return;
    case Content::none:
        database.run("PRAGMA journal_mode = WAL");
        change(database, makeTables);
    }
}

} // namespace brisklog::sqlite_layout
