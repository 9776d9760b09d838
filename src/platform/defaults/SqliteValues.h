#pragma once

#include "platform/LargeValueStore.h"

namespace brisklog {

class SqliteDatabase;
class SqliteQuery;
class SqliteTransaction;

/// The user defaults' tables in an open database. A failure is kept in the database object to be taken from
/// there; the result is then meaningless. Functions that change values return whether they succeeded.
class SqliteValues {
public:
    explicit SqliteValues(SqliteDatabase& database) : m_database(database) {}

    [[nodiscard]] std::optional<UserDefaults::Value> value(std::string_view key);
    bool setValue(std::string_view key, const UserDefaults::Value& value);
    bool removeValue(std::string_view key);
    [[nodiscard]] std::vector<UserDefaults::Entry> entries();

    [[nodiscard]] std::optional<std::size_t> dataSize(std::string_view key);
    [[nodiscard]] LargeValueStore::Reading readData(std::string_view key,
                                                    const std::function<void(DataParts&)>& read);
    bool replaceData(std::string_view key, std::size_t from, DataSource& data);
    bool renameValue(std::string_view key, std::string_view newKey);

private:
    struct Row {
        std::int64_t id;
        UserDefaults::Type type;
        std::size_t size;
    };

    /// The part to keep of a chunk that is to be rewritten, and where the chunk begins in the value.
    struct Head {
        std::size_t start;
        std::string bytes;
    };

    [[nodiscard]] std::optional<Row> find(std::string_view key);
    [[nodiscard]] std::optional<Row> rowIn(const SqliteQuery& query);
    void putRow(std::string_view key, const UserDefaults::Value& value);
    bool writeFrom(const Row& row, std::size_t from, DataSource& data);
    [[nodiscard]] Head headBefore(std::int64_t id, std::size_t offset);
    void removeChunks(std::int64_t id, std::size_t from);
    void setSize(std::int64_t id, std::size_t size);
    bool commit(SqliteTransaction& change, const std::optional<Row>& before, std::size_t keptSize);
    void reclaimSpace();

    SqliteDatabase& m_database;
    /// Whether chunks that refer to pieces have been removed.
    bool m_mayHaveUnusedPieces = false;
};

} // namespace brisklog
