#pragma once

#include "autotrack/DailyAppUsage.h"
#include "platform/UserDefaults.h"

#include <vector>

namespace brisklog {

/// The recorded days in the user defaults: one JSON document under one key.
class UsageHistoryStorage {
public:
    /// The history's icons are shared through the pool.
    UsageHistoryStorage(UserDefaults& userDefaults, SharedDataPool& icons)
        : m_userDefaults(userDefaults), m_icons(icons) {}

    /// The stored days, none when nothing is stored; an error when what is stored cannot be decoded.
    Result<std::vector<DailyAppUsage>> load();

    /// Sessions were appended to the day at this place, or the day itself was, and nothing else changed.
    void noteSessionAppended(std::size_t day);

    /// All days before this place are as they were; the others may be different.
    void noteChangeFrom(std::size_t day);

    /// Makes the stored value the encoding of the days; an error when they cannot be encoded, and nothing is
    /// changed then.
    Result<Done> save(const std::vector<DailyAppUsage>& days);

private:
    UserDefaults& m_userDefaults;
    SharedDataPool& m_icons;
};

} // namespace brisklog
