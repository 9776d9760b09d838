#pragma once

#include "platform/Clock.h"
#include "platform/LargeValueStore.h"
#include "platform/Log.h"

#include <filesystem>
#include <memory>

namespace brisklog {

class SqliteStorage;

/// The user defaults in a database file in the user's configuration folder. Nothing is opened before the
/// first access and nothing is created before the first write. A broken file is set aside under a name ending
/// in ".broken-" and the time, and a new one is started; if even that is impossible, values last as long as
/// the process.
class SqliteUserDefaults final : public LargeValueStore {
public:
    /// Without a file, values last as long as the process.
    SqliteUserDefaults(std::optional<std::filesystem::path> file, const Clock& clock, Log& log);
    ~SqliteUserDefaults() override;

    [[nodiscard]] std::optional<Value> value(std::string_view key) const override;
    void setValue(std::string_view key, const Value& value) override;
    void removeValue(std::string_view key) override;
    [[nodiscard]] std::vector<Entry> entries() const override;
    void synchronise() override;

    [[nodiscard]] std::optional<std::size_t> dataSize(std::string_view key) const override;
    [[nodiscard]] Reading readData(std::string_view key,
                                   const std::function<void(DataParts&)>& read) const override;
    bool replaceData(std::string_view key, std::size_t from, DataSource& data) override;
    bool renameValue(std::string_view key, std::string_view newKey) override;

private:
    std::unique_ptr<SqliteStorage> m_storage;
};

} // namespace brisklog
