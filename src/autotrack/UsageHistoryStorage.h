#pragma once

#include "autotrack/UsageHistoryEncoding.h"
#include "platform/Clock.h"

#include <vector>

namespace brisklog {

/// The recorded days in the user defaults: one JSON document under one key, which may be hundreds of
/// megabytes. What has not changed is not written again, so saving a closed session costs the same however
/// long the history is.
class UsageHistoryStorage {
public:
    /// The history's icons are shared through the pool.
    UsageHistoryStorage(LargeValueStore& userDefaults, const Clock& clock, SharedDataPool& icons)
        : m_userDefaults(userDefaults), m_clock(clock), m_icons(icons) {}

    /// The stored days, none when nothing is stored; an error when what is stored cannot be read or decoded.
    Result<std::vector<DailyAppUsage>> load();

    /// Makes the stored value the encoding of the days. The first `unchangedDays` of them are as they were
    /// when last loaded or saved, except that the last of these may have gained sessions. Fails, changing
    /// nothing, when the days cannot be encoded. What the user defaults fail to store is stored with the next
    /// save. A value that could not be loaded is moved to another key before it is replaced for the first
    /// time.
    Result<Done> save(const std::vector<DailyAppUsage>& days, std::size_t unchangedDays);

    /// Deletes the values that could not be loaded, now and earlier.
    void removeUnreadable();

private:
    void findOurEncoding(const std::vector<DailyAppUsage>& days);
    [[nodiscard]] bool setUnreadableAside();

    LargeValueStore& m_userDefaults;
    const Clock& m_clock;
    SharedDataPool& m_icons;
    /// The part of the stored value that encodes the days as they were last loaded or saved.
    EncodedDays m_stored;
    bool m_isUnreadable = false;
};

} // namespace brisklog
