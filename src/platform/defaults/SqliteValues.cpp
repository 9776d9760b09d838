#include "platform/defaults/SqliteValues.h"

#include "platform/defaults/SqliteChunks.h"
#include "platform/defaults/SqliteLayout.h"

#include <algorithm>
#include <limits>
#include <utility>

namespace brisklog {
namespace {

using Type = UserDefaults::Type;
using Value = UserDefaults::Value;

using namespace sqlite_layout;

/// The most memory to reserve at once, in case the size is corrupted.
constexpr std::size_t largestReservation = std::size_t{1} << 28;

/// How much free space is worth returning to the file system.
constexpr std::size_t noticeableRoom = std::size_t{1} << 20;

struct SizeOf {
    std::size_t operator()(const std::string& text) const { return text.size(); }

    std::size_t operator()(const Data& data) const { return data.bytes.size(); }

    std::size_t operator()(auto /*scalar*/) const { return 0; }
};

std::size_t sizeOf(const Value& value) { return std::visit(SizeOf{}, value); }

/// Binds a value's content to parameter 4; the bytes of data are kept in chunks instead.
struct BindContent {
    SqliteQuery& query;

    void operator()(const std::string& text) const { query.bindText(4, text); }

    void operator()(bool truth) const { query.bindInteger(4, truth ? 1 : 0); }

    void operator()(std::int64_t number) const { query.bindInteger(4, number); }

    void operator()(double number) const { query.bindNumber(4, number); }

    void operator()(const Data& /*data*/) const {}
};

/// A text or a number from the given column; absent when the column holds anything else.
std::optional<Value> scalar(Type type, const SqliteQuery& row, int column) {
    const auto kind = row.kind(column);
    if (type == Type::text && kind == SqliteQuery::Kind::text)
        return std::string(row.bytes(column));
    if (type == Type::truth && kind == SqliteQuery::Kind::integer)
        return row.integer(column) != 0;
    if (type == Type::integer && kind == SqliteQuery::Kind::integer)
        return row.integer(column);
    if (type == Type::number && kind == SqliteQuery::Kind::number)
        return row.number(column);
    // SQLite keeps "not a number" as NULL.
    if (type == Type::number && kind == SqliteQuery::Kind::null)
        return std::numeric_limits<double>::quiet_NaN();
    return std::nullopt;
}

} // namespace

/// Reads the first three columns: id, type and size.
std::optional<SqliteValues::Row> SqliteValues::rowIn(const SqliteQuery& query) {
    const auto id = query.integer(0);
    const auto type = query.integer(1);
    const auto size = query.integer(2);
    if (type < 0 || type > static_cast<std::int64_t>(Type::data)) {
        m_database.failAsCorrupt("a value of unknown type");
        return std::nullopt;
    }
    if (id < smallestId || id > largestId || size < 0 || size > static_cast<std::int64_t>(largestSize)) {
        m_database.failAsCorrupt("a value without a place");
        return std::nullopt;
    }
    return Row{id, static_cast<Type>(type), static_cast<std::size_t>(size)};
}

std::optional<SqliteValues::Row> SqliteValues::find(std::string_view key) {
    SqliteQuery query = m_database.query("SELECT id, type, size FROM value WHERE key = ?1");
    return query.bindText(1, key).next() ? rowIn(query) : std::nullopt;
}

std::optional<Value> SqliteValues::value(std::string_view key) {
    // Stays open while the chunks are read, so that both statements see the same state whatever another
    // process changes.
    SqliteQuery query = m_database.query("SELECT id, type, size, content FROM value WHERE key = ?1");
    if (!query.bindText(1, key).next())
        return std::nullopt;
    const auto row = rowIn(query);
    if (row && row->type != Type::data) {
        auto found = scalar(row->type, query, 3);
        if (!found)
            m_database.failAsCorrupt("a value that is not of its type");
        return found;
    }
    if (!row)
        return std::nullopt;
    SqliteChunkReader parts(m_database, row->id, row->size);
    Data data;
    data.bytes.reserve(std::min(row->size, largestReservation));
    while (const auto part = parts.next())
        data.bytes += part->bytes;
    return data;
}

bool SqliteValues::setValue(std::string_view key, const Value& value) {
    if (const auto* const data = std::get_if<Data>(&value)) {
        InMemoryData bytes(data->bytes);
        return replaceData(key, 0, bytes);
    }
    if (this->value(key) == value)
        return true;
    SqliteTransaction change(m_database);
    const auto before = find(key);
    if (before)
        removeChunks(before->id, 0);
    putRow(key, value);
    return commit(change, before, sizeOf(value));
}

void SqliteValues::putRow(std::string_view key, const Value& value) {
    SqliteQuery query =
        m_database.query("INSERT INTO value (key, type, size, content) VALUES (?1, ?2, ?3, ?4)"
                         " ON CONFLICT (key) DO UPDATE SET type = ?2, size = ?3, content = ?4");
    query.bindText(1, key)
        .bindInteger(2, static_cast<std::int64_t>(value.index()))
        .bindInteger(3, static_cast<std::int64_t>(sizeOf(value)));
    std::visit(BindContent{query}, value);
    query.run();
}

bool SqliteValues::removeValue(std::string_view key) {
    const auto row = find(key);
    if (!row)
        return true;
    SqliteTransaction change(m_database);
    removeChunks(row->id, 0);
    m_database.query("DELETE FROM value WHERE id = ?1").bindInteger(1, row->id).run();
    return commit(change, row, 0);
}

std::vector<UserDefaults::Entry> SqliteValues::entries() {
    std::vector<UserDefaults::Entry> entries;
    SqliteQuery query = m_database.query("SELECT id, type, size, key FROM value ORDER BY id");
    while (query.next())
        if (const auto row = rowIn(query))
            entries.push_back({std::string(query.bytes(3)), row->type, row->size});
    return entries;
}

std::optional<std::size_t> SqliteValues::dataSize(std::string_view key) {
    const auto row = find(key);
    return row && row->type == Type::data ? std::optional(row->size) : std::nullopt;
}

LargeValueStore::Reading SqliteValues::readData(std::string_view key,
                                                const std::function<void(DataParts&)>& read) {
    // Stays open while the chunks are read, so that both statements see the same state whatever another
    // process changes.
    SqliteQuery query = m_database.query("SELECT id, type, size FROM value WHERE key = ?1");
    if (!query.bindText(1, key).next())
        return LargeValueStore::Reading::absent;
    const auto row = rowIn(query);
    if (!row || row->type != Type::data)
        return LargeValueStore::Reading::otherType;
    SqliteChunkReader parts(m_database, row->id, row->size);
    read(parts);
    return LargeValueStore::Reading::complete;
}

bool SqliteValues::replaceData(std::string_view key, std::size_t from, DataSource& data) {
    SqliteTransaction change(m_database);
    const auto before = find(key);
    const bool wasData = before && before->type == Type::data;
    if (from > 0 && (!wasData || from > before->size))
        return false;
    if (!wasData)
        putRow(key, Data{});
    const auto row = wasData ? before : find(key);
    return row && writeFrom(*row, from, data) && commit(change, before, from);
}

/// Replaces everything from `from` on, as part of a transaction; false when the source failed.
bool SqliteValues::writeFrom(const Row& row, std::size_t from, DataSource& data) {
    const Head head = headBefore(row.id, from);
    removeChunks(row.id, head.start);
    SqliteChunkWriter writer(m_database, row.id, head.start);
    writer.append(head.bytes);
    data.rewind();
    while (const auto part = data.next())
        writer.append(part->bytes);
    setSize(row.id, writer.finish());
    return !data.failed();
}

bool SqliteValues::renameValue(std::string_view key, std::string_view newKey) {
    SqliteTransaction change(m_database);
    if (!find(key) || find(newKey))
        return false;
    m_database.query("UPDATE value SET key = ?2 WHERE key = ?1").bindText(1, key).bindText(2, newKey).run();
    return change.commit();
}

SqliteValues::Head SqliteValues::headBefore(std::int64_t id, std::size_t offset) {
    SqliteQuery query =
        m_database.query("SELECT place, bytes, piece FROM chunk WHERE place >= ?1 AND place < ?2"
                         " ORDER BY place DESC LIMIT 1");
    if (offset == 0 || !query.bindInteger(1, place(id, 0)).bindInteger(2, place(id, offset)).next()) {
        if (offset != 0)
            m_database.failAsCorrupt("a value without its bytes");
        return {offset, {}};
    }
    const auto start = static_cast<std::size_t>(query.integer(0) - place(id, 0));
    const bool isPiece = query.kind(2) == SqliteQuery::Kind::integer;
    const std::string bytes =
        isPiece ? sqlitePiece(m_database, query.integer(2)) : std::string(query.bytes(1));
    if (start + bytes.size() < offset)
        m_database.failAsCorrupt("a value that is not of its length");
    // A full chunk that ends exactly there stays as it is.
    if ((isPiece || bytes.size() >= chunkSize) && start + bytes.size() == offset)
        return {offset, {}};
    return {start, bytes.substr(0, offset - start)};
}

void SqliteValues::removeChunks(std::int64_t id, std::size_t from) {
    SqliteQuery naming = m_database.query("SELECT 1 FROM chunk WHERE place >= ?1 AND place < ?2"
                                          " AND +piece IS NOT NULL LIMIT 1");
    if (naming.bindInteger(1, place(id, from)).bindInteger(2, place(id + 1, 0)).next())
        m_mayHaveUnusedPieces = true;
    m_database.query("DELETE FROM chunk WHERE place >= ?1 AND place < ?2")
        .bindInteger(1, place(id, from))
        .bindInteger(2, place(id + 1, 0))
        .run();
}

void SqliteValues::setSize(std::int64_t id, std::size_t size) {
    m_database.query("UPDATE value SET size = ?2 WHERE id = ?1")
        .bindInteger(1, id)
        .bindInteger(2, static_cast<std::int64_t>(size))
        .run();
}

bool SqliteValues::commit(SqliteTransaction& change, const std::optional<Row>& before, std::size_t keptSize) {
    if (m_mayHaveUnusedPieces)
        m_database
            .query("DELETE FROM piece WHERE NOT EXISTS (SELECT 1 FROM chunk WHERE chunk.piece = piece.id)")
            .run();
    if (!change.commit())
        return false;
    if (before && before->size >= keptSize + noticeableRoom)
        reclaimSpace();
    return true;
}

/// Shrinks a file that consists largely of deleted data: deleting a long history frees disk space.
void SqliteValues::reclaimSpace() {
    const auto free = m_database.integer("PRAGMA freelist_count");
    const auto all = m_database.integer("PRAGMA page_count");
    if (!free || !all || *free * 2 < *all)
        return;
    m_database.run("VACUUM");
    m_database.checkpoint();
    // The change itself has succeeded; failing to free its space does no harm.
    (void)m_database.takeFailure();
}

} // namespace brisklog
