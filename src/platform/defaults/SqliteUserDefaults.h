#pragma once

#include "platform/Clock.h"
#include "platform/Log.h"
#include "platform/UserDefaults.h"

#include <filesystem>
#include <memory>

namespace brisklog {

/// The user defaults in a database file of the user's configuration folder. Nothing is opened before the
/// first access and nothing is made before the first write. A broken file is set aside under a name ending in
/// ".broken-" and the time, and a new one begun; where not even that is possible, values last as long as the
/// process.
class SqliteUserDefaults final : public UserDefaults {
public:
    /// Without a file the values last as long as the process.
    SqliteUserDefaults(std::optional<std::filesystem::path> file, const Clock& clock, Log& log);
    ~SqliteUserDefaults() override;

    [[nodiscard]] std::optional<Value> value(std::string_view key) const override;
    void setValue(std::string_view key, const Value& value) override;
    void removeValue(std::string_view key) override;
    [[nodiscard]] std::vector<Entry> entries() const override;
    [[nodiscard]] Reading readData(std::string_view key, const Read& read) const override;
    bool writeData(std::string_view key, const Write& write) override;
    bool writeTail(std::string_view key, std::size_t offset, const Write& write) override;
    bool renameValue(std::string_view key, std::string_view newKey) override;
    void synchronise() override;

private:
    class Storage;

    std::unique_ptr<Storage> m_storage;
};

} // namespace brisklog
