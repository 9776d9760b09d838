#include "platform/linux/SqliteUserDefaults.h"

#include "platform/linux/SqliteStorage.h"

#include <utility>

namespace brisklog {

SqliteUserDefaults::SqliteUserDefaults(std::optional<std::filesystem::path> file, const Clock& clock,
                                       Log& log)
    : m_storage(std::make_unique<Storage>(std::move(file), clock, log)) {}

SqliteUserDefaults::~SqliteUserDefaults() = default;

std::optional<UserDefaults::Value> SqliteUserDefaults::value(std::string_view key) const {
    std::optional<Value> found;
    const bool done =
        m_storage->read(key, [&](SqliteDatabase& database) { found = SqliteValues(database).value(key); });
    return done ? std::move(found) : std::nullopt;
}

void SqliteUserDefaults::setValue(std::string_view key, const Value& value) {
    m_storage->write(key, [&](SqliteDatabase& database) { SqliteValues(database).setValue(key, value); });
}

void SqliteUserDefaults::removeValue(std::string_view key) {
    // Where there is no database there is nothing to remove, and none is made for it.
    m_storage->change(key, [&](SqliteDatabase& database) { SqliteValues(database).removeValue(key); });
}

std::vector<UserDefaults::Entry> SqliteUserDefaults::entries() const {
    std::vector<Entry> found;
    const bool done = m_storage->read(
        "list of keys", [&](SqliteDatabase& database) { found = SqliteValues(database).entries(); });
    return done ? std::move(found) : std::vector<Entry>();
}

bool SqliteUserDefaults::replaceTail(std::string_view key, std::size_t offset, std::string_view tail) {
    bool replaced = false;
    const bool done = m_storage->change(key, [&](SqliteDatabase& database) {
        replaced = SqliteValues(database).replaceTail(key, offset, tail);
    });
    return done && replaced;
}

void SqliteUserDefaults::synchronise() { m_storage->synchronise(); }

} // namespace brisklog
