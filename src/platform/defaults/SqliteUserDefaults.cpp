#include "platform/defaults/SqliteUserDefaults.h"

#include "platform/defaults/SqliteStorage.h"

#include <utility>

namespace brisklog {

SqliteUserDefaults::SqliteUserDefaults(std::optional<std::filesystem::path> file, const Clock& clock,
                                       Log& log)
    : m_storage(std::make_unique<Storage>(std::move(file), clock, log)) {}

SqliteUserDefaults::~SqliteUserDefaults() = default;

std::optional<UserDefaults::Value> SqliteUserDefaults::value(std::string_view key) const {
    std::optional<Value> found;
    const auto outcome =
        m_storage->read(key, [&](SqliteDatabase& database) { found = SqliteValues(database).value(key); });
    return outcome == Storage::Outcome::done ? std::move(found) : std::nullopt;
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
    const auto outcome = m_storage->read(
        "list of keys", [&](SqliteDatabase& database) { found = SqliteValues(database).entries(); });
    return outcome == Storage::Outcome::done ? std::move(found) : std::vector<Entry>();
}

UserDefaults::Reading SqliteUserDefaults::readData(std::string_view key, const Read& read) const {
    auto reading = Reading::absent;
    const auto outcome = m_storage->read(
        key, [&](SqliteDatabase& database) { reading = SqliteValues(database).readData(key, read); });
    switch (outcome) {
    case Storage::Outcome::done:
        return reading;
    case Storage::Outcome::nothingThere:
        return Reading::absent;
    case Storage::Outcome::failed:
        break;
    }
    return Reading::failed;
}

bool SqliteUserDefaults::writeData(std::string_view key, const Write& write) {
    bool written = false;
    const auto outcome = m_storage->write(
        key, [&](SqliteDatabase& database) { written = SqliteValues(database).writeData(key, write); });
    return outcome == Storage::Outcome::done && written;
}

bool SqliteUserDefaults::writeTail(std::string_view key, std::size_t offset, const Write& write) {
    bool written = false;
    const auto outcome = m_storage->change(key, [&](SqliteDatabase& database) {
        written = SqliteValues(database).writeTail(key, offset, write);
    });
    return outcome == Storage::Outcome::done && written;
}

bool SqliteUserDefaults::renameValue(std::string_view key, std::string_view newKey) {
    bool renamed = false;
    const auto outcome = m_storage->change(
        key, [&](SqliteDatabase& database) { renamed = SqliteValues(database).renameValue(key, newKey); });
    return outcome == Storage::Outcome::done && renamed;
}

void SqliteUserDefaults::synchronise() { m_storage->synchronise(); }

} // namespace brisklog
