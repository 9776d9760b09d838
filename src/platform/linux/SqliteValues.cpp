#include "platform/linux/SqliteValues.h"

#include "platform/linux/SqliteDatabase.h"

#include <algorithm>
#include <limits>
#include <utility>

namespace brisklog {
namespace {

using Type = UserDefaults::Type;
using Value = UserDefaults::Value;

constexpr std::int64_t layoutVersion = 1;

/// The bytes of a data value lie in chunks. A chunk's place is its value's id times 2^40 plus the position of
/// its first byte in the value, so that a value's chunks lie side by side and in order in one tree, and
/// chunks need not all be of one length.
constexpr const char* tables =
    "BEGIN IMMEDIATE;"
    "CREATE TABLE value (id INTEGER PRIMARY KEY, key TEXT NOT NULL UNIQUE, type INTEGER NOT NULL,"
    "                    size INTEGER NOT NULL, content);"
    "CREATE TABLE chunk (place INTEGER PRIMARY KEY, bytes BLOB NOT NULL);"
    "PRAGMA user_version = 1;"
    "COMMIT;";

constexpr int placeBits = 40;
constexpr std::size_t largestSize = (std::size_t{1} << placeBits) - 1;
constexpr std::size_t chunkSize = 16384;

/// What a corrupted size must not make us ask for at once.
constexpr std::size_t largestReservation = std::size_t{1} << 28;

/// Room worth giving back to the file system.
constexpr std::size_t noticeableRoom = std::size_t{1} << 20;

constexpr std::int64_t place(std::int64_t id, std::size_t position) {
    return id * (std::int64_t{1} << placeBits) + static_cast<std::int64_t>(position);
}

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

void SqliteValues::prepare() {
    switch (lookAtContent()) {
    case Content::ours:
        return;
    case Content::foreign:
        m_database.failAsCorrupt("not a store this version can read");
        return;
    case Content::none:
        makeTables();
    }
}

SqliteValues::Content SqliteValues::lookAtContent() {
    // One statement: another process may be making the tables just now.
    SqliteQuery query = m_database.query(
        "SELECT user_version, (SELECT count(*) FROM sqlite_schema) FROM pragma_user_version");
    if (!query.next() || query.integer(0) == layoutVersion)
        return Content::ours;
    return query.integer(0) == 0 && query.integer(1) == 0 ? Content::none : Content::foreign;
}

void SqliteValues::makeTables() {
    m_database.run("PRAGMA journal_mode = WAL");
    if (m_database.hasFailed() || m_database.run(tables))
        return;
    // Another process may have made them between our look and our try.
    const auto failure = m_database.takeFailure();
    m_database.run("ROLLBACK");
    (void)m_database.takeFailure();
    if (lookAtContent() != Content::ours)
        m_database.fail(*failure);
}

std::optional<Type> SqliteValues::typeOf(std::int64_t stored) {
    if (stored >= 0 && stored <= static_cast<std::int64_t>(Type::data))
        return static_cast<Type>(stored);
    m_database.failAsCorrupt("a value of unknown type");
    return std::nullopt;
}

std::optional<SqliteValues::Row> SqliteValues::find(std::string_view key) {
    SqliteQuery query = m_database.query("SELECT id, type, size FROM value WHERE key = ?1");
    if (!query.bindText(1, key).next())
        return std::nullopt;
    const auto type = typeOf(query.integer(1));
    if (!type)
        return std::nullopt;
    return Row{query.integer(0), *type, static_cast<std::size_t>(query.integer(2))};
}

std::optional<Value> SqliteValues::value(std::string_view key) {
    // One statement, so that what another process changes meanwhile is seen wholly or not at all.
    SqliteQuery query = m_database.query(
        "SELECT value.type, value.content, value.size, chunk.bytes FROM value LEFT JOIN chunk"
        " ON chunk.place >= value.id << 40 AND chunk.place < (value.id + 1) << 40"
        " WHERE value.key = ?1 ORDER BY chunk.place");
    if (!query.bindText(1, key).next())
        return std::nullopt;
    const auto type = typeOf(query.integer(0));
    if (type && *type != Type::data) {
        auto found = scalar(*type, query, 1);
        if (!found)
            m_database.failAsCorrupt("a value that is not of its type");
        return found;
    }
    const auto size = static_cast<std::size_t>(query.integer(2));
    Data data;
    data.bytes.reserve(std::min(size, largestReservation));
    do
        data.bytes += query.bytes(3);
    while (query.next());
    if (data.bytes.size() != size)
        m_database.failAsCorrupt("a value that is not of its length");
    return data;
}

void SqliteValues::setValue(std::string_view key, const Value& value) {
    const bool isData = std::holds_alternative<Data>(value);
    if (!isData && this->value(key) == value)
        return;
    SqliteTransaction change(m_database);
    const auto before = find(key);
    if (before)
        removeChunks(before->id, 0);
    putRow(key, value);
    const auto after = find(key);
    if (isData && after)
        addChunks(after->id, {}, std::get<Data>(value).bytes);
    if (change.commit() && before)
        reclaimSpace(before->size, sizeOf(value));
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

void SqliteValues::removeValue(std::string_view key) {
    const auto row = find(key);
    if (!row)
        return;
    SqliteTransaction change(m_database);
    removeChunks(row->id, 0);
    m_database.query("DELETE FROM value WHERE id = ?1").bindInteger(1, row->id).run();
    if (change.commit())
        reclaimSpace(row->size, 0);
}

std::vector<UserDefaults::Entry> SqliteValues::entries() {
    std::vector<UserDefaults::Entry> entries;
    SqliteQuery query = m_database.query("SELECT key, type, size FROM value ORDER BY id");
    while (query.next())
        if (const auto type = typeOf(query.integer(1)))
            entries.push_back(
                {std::string(query.bytes(0)), *type, static_cast<std::size_t>(query.integer(2))});
    return entries;
}

bool SqliteValues::replaceTail(std::string_view key, std::size_t offset, std::string_view tail) {
    SqliteTransaction change(m_database);
    const auto row = find(key);
    if (!row || row->type != Type::data || offset > row->size || tail.size() > largestSize - offset)
        return false;
    Head head = headBefore(row->id, offset);
    removeChunks(row->id, head.start);
    addChunks(row->id, std::move(head), tail);
    m_database.query("UPDATE value SET size = ?2 WHERE id = ?1")
        .bindInteger(1, row->id)
        .bindInteger(2, static_cast<std::int64_t>(offset + tail.size()))
        .run();
    if (!change.commit())
        return false;
    reclaimSpace(row->size, offset + tail.size());
    return true;
}

SqliteValues::Head SqliteValues::headBefore(std::int64_t id, std::size_t offset) {
    SqliteQuery query = m_database.query("SELECT place, bytes FROM chunk WHERE place >= ?1 AND place < ?2"
                                         " ORDER BY place DESC LIMIT 1");
    if (offset == 0 || !query.bindInteger(1, place(id, 0)).bindInteger(2, place(id, offset)).next()) {
        if (offset != 0)
            m_database.failAsCorrupt("a value without its bytes");
        return {offset, {}};
    }
    const auto start = static_cast<std::size_t>(query.integer(0) - place(id, 0));
    const std::string_view bytes = query.bytes(1);
    if (start + bytes.size() < offset)
        m_database.failAsCorrupt("a value that is not of its length");
    // A full chunk that ends just there stays as it is.
    if (bytes.size() >= chunkSize && start + bytes.size() == offset)
        return {offset, {}};
    return {start, std::string(bytes.substr(0, offset - start))};
}

void SqliteValues::removeChunks(std::int64_t id, std::size_t from) {
    m_database.query("DELETE FROM chunk WHERE place >= ?1 AND place < ?2")
        .bindInteger(1, place(id, from))
        .bindInteger(2, place(id + 1, 0))
        .run();
}

void SqliteValues::addChunks(std::int64_t id, Head head, std::string_view tail) {
    std::string first = std::move(head.bytes);
    if (!first.empty()) {
        const std::string_view joined = tail.substr(0, chunkSize - std::min(chunkSize, first.size()));
        first += joined;
        tail.remove_prefix(joined.size());
    }
    const auto add = [this, id](std::size_t position, std::string_view bytes) {
        m_database.query("INSERT INTO chunk (place, bytes) VALUES (?1, ?2)")
            .bindInteger(1, place(id, position))
            .bindBytes(2, bytes)
            .run();
    };
    std::size_t position = head.start;
    if (!first.empty())
        add(position, first);
    position += first.size();
    for (; !tail.empty() && !m_database.hasFailed(); tail.remove_prefix(std::min(chunkSize, tail.size()))) {
        add(position, tail.substr(0, chunkSize));
        position += std::min(chunkSize, tail.size());
    }
}

/// A file grown large by what was deleted since is made small again: deleting a long history frees the disk.
void SqliteValues::reclaimSpace(std::size_t sizeBefore, std::size_t sizeAfter) {
    if (sizeBefore < sizeAfter + noticeableRoom)
        return;
    const auto free = m_database.integer("PRAGMA freelist_count");
    const auto all = m_database.integer("PRAGMA page_count");
    if (!free || !all || *free * 2 < *all)
        return;
    m_database.run("VACUUM");
    m_database.checkpoint();
    // The change itself is made; that its room is still taken is no loss.
    (void)m_database.takeFailure();
}

} // namespace brisklog
