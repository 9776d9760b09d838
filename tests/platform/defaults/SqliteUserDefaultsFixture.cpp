#include "SqliteUserDefaultsFixture.h"

#include <algorithm>
#include <random>
#include <sqlite3.h>

namespace brisklog::test {

std::vector<std::string> SqliteDefaults::filesStartingWith(std::string_view beginning) const {
    std::vector<std::string> names;
    for (const auto& entry : std::filesystem::directory_iterator(home.configuration()))
        if (entry.path().filename().string().starts_with(beginning))
            names.push_back(entry.path().filename().string());
    std::ranges::sort(names);
    return names;
}

void SqliteDefaults::storeSomething() {
    auto store = openStore();
    store.setValue("short", std::string("kurz"));
    store.setValue("long", Data{variedBytes(200000)});
}

void SqliteDefaults::makeEarlierVersionsStore() {
    std::filesystem::create_directories(home.configuration());
    sqlite3* database = nullptr;
    ASSERT_EQ(sqlite3_open(file().c_str(), &database), SQLITE_OK);
    const std::string sql =
        "PRAGMA journal_mode = WAL;"
        "CREATE TABLE value (id INTEGER PRIMARY KEY, key TEXT NOT NULL UNIQUE, type INTEGER NOT NULL,"
        "                    size INTEGER NOT NULL, content);"
        "CREATE TABLE chunk (place INTEGER PRIMARY KEY, bytes BLOB NOT NULL);"
        "PRAGMA user_version = 1;"
        "INSERT INTO value VALUES (1, 'short', 0, 4, 'kurz'), (2, 'long', 4, 16387, NULL);"
        "INSERT INTO chunk VALUES (2 << 40, CAST('" +
        earlierVersionsData().substr(0, 16384) + "' AS BLOB)), ((2 << 40) + 16384, CAST('end' AS BLOB));";
    ASSERT_EQ(sqlite3_exec(database, sql.c_str(), nullptr, nullptr, nullptr), SQLITE_OK);
    sqlite3_close(database);
}

std::string earlierVersionsData() { return base64Digits(16384, 1) + "end"; }

std::string base64Digits(std::size_t size, unsigned number) {
    std::mt19937 chance(number);
    std::string text(size, '\0');
    for (char& digit : text)
        digit = "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/"[chance() % 64];
    return text;
}

std::string variedBytes(std::size_t size) {
    std::string bytes(size, '\0');
    for (std::size_t position = 0; position < size; ++position)
        bytes[position] = static_cast<char>(position * 7 + position / 251);
    return bytes;
}

} // namespace brisklog::test
