#pragma once

#include "platform/UserDefaults.h"

namespace brisklog {

class SqliteDatabase;

/// The user defaults' tables in an open database. Whatever fails is left in the database to be taken there;
/// the result then means nothing.
class SqliteValues {
public:
    explicit SqliteValues(SqliteDatabase& database) : m_database(database) {}

    /// Makes the tables in an empty database; a database that holds anything but our tables is a failure.
    void prepare();

    [[nodiscard]] std::optional<UserDefaults::Value> value(std::string_view key);
    void setValue(std::string_view key, const UserDefaults::Value& value);
    void removeValue(std::string_view key);
    [[nodiscard]] std::vector<UserDefaults::Entry> entries();
    bool replaceTail(std::string_view key, std::size_t offset, std::string_view tail);

private:
    enum class Content { none, ours, foreign };

    struct Row {
        std::int64_t id;
        UserDefaults::Type type;
        std::size_t size;
    };

    /// The kept beginning of a chunk that is to be written anew, and where the chunk begins in the value.
    struct Head {
        std::size_t start;
        std::string bytes;
    };

    [[nodiscard]] Content lookAtContent();
    void makeTables();
    [[nodiscard]] std::optional<Row> find(std::string_view key);
    [[nodiscard]] std::optional<UserDefaults::Type> typeOf(std::int64_t stored);
    void putRow(std::string_view key, const UserDefaults::Value& value);
    [[nodiscard]] Head headBefore(std::int64_t id, std::size_t offset);
    void removeChunks(std::int64_t id, std::size_t from);
    void addChunks(std::int64_t id, Head head, std::string_view tail);
    void reclaimSpace(std::size_t sizeBefore, std::size_t sizeAfter);

    SqliteDatabase& m_database;
};

} // namespace brisklog
