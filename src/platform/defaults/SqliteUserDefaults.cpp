#include "platform/defaults/SqliteUserDefaults.h"

#include "platform/defaults/SqliteStorage.h"
#include "platform/defaults/SqliteValues.h"

#include <utility>

namespace brisklog {

using Purpose = SqliteStorage::Purpose;

SqliteUserDefaults::SqliteUserDefaults(std::optional<std::filesystem::path> file, const Clock& clock,
                                       Log& log)
    : m_storage(std::make_unique<SqliteStorage>(std::move(file), clock, log)) {}

SqliteUserDefaults::~SqliteUserDefaults() = default;

std::optional<UserDefaults::Value> SqliteUserDefaults::value(std::string_view key) const {
    const auto find = [&](SqliteDatabase& database) { return SqliteValues(database).value(key); };
    return m_storage->perform(Purpose::reading, key, find).value_or(std::nullopt);
}

void SqliteUserDefaults::setValue(std::string_view key, const Value& value) {
    m_storage->perform(Purpose::writing, key,
                       [&](SqliteDatabase& database) { return SqliteValues(database).setValue(key, value); });
}

void SqliteUserDefaults::removeValue(std::string_view key) {
    m_storage->perform(Purpose::changing, key,
                       [&](SqliteDatabase& database) { return SqliteValues(database).removeValue(key); });
}

std::vector<UserDefaults::Entry> SqliteUserDefaults::entries() const {
    const auto list = [](SqliteDatabase& database) { return SqliteValues(database).entries(); };
    return m_storage->perform(Purpose::reading, "list of keys", list).value_or(std::vector<Entry>());
}

void SqliteUserDefaults::synchronise() { m_storage->synchronise(); }

std::optional<std::size_t> SqliteUserDefaults::dataSize(std::string_view key) const {
    const auto find = [&](SqliteDatabase& database) { return SqliteValues(database).dataSize(key); };
    return m_storage->perform(Purpose::reading, key, find).value_or(std::nullopt);
}

LargeValueStore::Reading SqliteUserDefaults::readData(std::string_view key,
                                                      const std::function<void(DataParts&)>& read) const {
    static_assert(Reading{} == Reading::absent, "which it is where there is no database");
    const auto readParts = [&](SqliteDatabase& database) {
        return SqliteValues(database).readData(key, read);
    };
    return m_storage->perform(Purpose::reading, key, readParts).value_or(Reading::failed);
}

bool SqliteUserDefaults::replaceData(std::string_view key, std::size_t from, DataSource& data) {
    const auto replace = [&](SqliteDatabase& database) {
        return SqliteValues(database).replaceData(key, from, data);
    };
    return m_storage->perform(from == 0 ? Purpose::writing : Purpose::changing, key, replace).value_or(false);
}

bool SqliteUserDefaults::renameValue(std::string_view key, std::string_view newKey) {
    const auto rename = [&](SqliteDatabase& database) {
        return SqliteValues(database).renameValue(key, newKey);
    };
    return m_storage->perform(Purpose::changing, key, rename).value_or(false);
}

} // namespace brisklog
