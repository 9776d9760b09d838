// The user defaults' database, intact but with arbitrary content: the input is SQL that is run on a store.

#include "DefaultsFile.h"

#include "platform/defaults/SqliteUserDefaults.h"
#include "support/FakeClock.h"
#include "support/RecordingLog.h"

#include <algorithm>
#include <fstream>
#include <iterator>
#include <sqlite3.h>

namespace brisklog::fuzz {
namespace {

constexpr int mostBytesInSql = 1 << 16;
constexpr int mostStepsInSql = 20000;

/// A store as the program leaves it.
std::string madeStore(const DefaultsFile& file) {
    {
        const test::FakeClock clock;
        test::RecordingLog log;
        SqliteUserDefaults defaults(file.path(), clock, log);
        defaults.setValue("text", std::string("kurz"));
        defaults.setValue("truth", true);
        defaults.setValue("integer", std::int64_t{42});
        defaults.setValue("number", 1.5);
        const std::string picture(700, 'Q');
        defaults.setValue("data",
                          Data{"[\"" + picture + "\",\"" + picture + "\"," + std::string(9000, ' ') + "]"});
    }
    std::ifstream stream(file.path(), std::ios::binary);
    return {std::istreambuf_iterator(stream), {}};
}

/// Any content is allowed, but the SQL must stay within the folder and the time limit.
int permission(void* /*context*/, int action, const char* /*a*/, const char* /*b*/, const char* /*c*/,
               const char* /*d*/) {
    return action == SQLITE_ATTACH || action == SQLITE_PRAGMA ? SQLITE_DENY : SQLITE_OK;
}

int stop(void* /*context*/) { return 1; }

/// Runs one statement after another, ignoring failures.
void runAll(sqlite3* database, std::string_view statements) {
    while (!statements.empty()) {
        const auto end = std::min(statements.find(';'), statements.size() - 1) + 1;
        const std::string statement(statements.substr(0, end));
        sqlite3_exec(database, statement.c_str(), nullptr, nullptr, nullptr);
        statements.remove_prefix(end);
    }
}

void change(const DefaultsFile& file, std::string_view statements) {
    sqlite3* database = nullptr;
    require(sqlite3_open(file.path().c_str(), &database) == SQLITE_OK, "the store can be opened");
    sqlite3_limit(database, SQLITE_LIMIT_LENGTH, mostBytesInSql);
    sqlite3_set_authorizer(database, permission, nullptr);
    sqlite3_progress_handler(database, mostStepsInSql, stop, nullptr);
    runAll(database, statements);
    sqlite3_close(database);
}

} // namespace

void tryInput(std::string_view bytes) {
    static const DefaultsFile file;
    static const std::string store = madeStore(file);
    file.reset(store);
    change(file, bytes);
    file.use();
}

} // namespace brisklog::fuzz
