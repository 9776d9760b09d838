#pragma once

#include "autotrack/UsageHistoryEncoding.h"
#include "platform/Clock.h"
#include "platform/UserDefaults.h"

#include <string>
#include <vector>

namespace brisklog {

/// The recorded days in the user defaults: one JSON document under one key, which may be hundreds of
/// megabytes. What a change leaves untouched is not written again; so a closed session costs the same however
/// long the history is.
class UsageHistoryStorage {
public:
    /// The history's icons are shared through the pool.
    UsageHistoryStorage(UserDefaults& userDefaults, const Clock& clock, SharedDataPool& icons)
        : m_userDefaults(userDefaults), m_clock(clock), m_icons(icons) {}

    /// The stored days, none when nothing is stored; an error when what is stored cannot be read or decoded.
    Result<std::vector<DailyAppUsage>> load();

    /// Sessions were appended to the day at this place, or the day itself was, and nothing else changed.
    void noteSessionAppended(std::size_t day);

    /// All days before this place are as they were; the others may be different.
    void noteChangeFrom(std::size_t day);

    /// The user wants nothing kept of what was recorded so far.
    void noteCleared();

    /// Makes the stored value the encoding of the days; an error when they cannot be encoded, and nothing is
    /// changed then. What the user defaults fail to store is stored with the next save. A value that could
    /// not be loaded is moved to another key before it is replaced for the first time.
    Result<Done> save(const std::vector<DailyAppUsage>& days);

private:
    void findOurEncoding(const std::vector<DailyAppUsage>& days);
    [[nodiscard]] bool isStoredAsLeft() const;
    [[nodiscard]] bool setUnreadableAside();
    void removeWhatWasSetAside();

    UserDefaults& m_userDefaults;
    const Clock& m_clock;
    SharedDataPool& m_icons;
    /// What of the stored value is the encoding of the days as they are now.
    EncodedDays m_kept;
    /// The stored value's size; 0 when it is not known to be ours.
    std::size_t m_storedSize = 0;
    bool m_isUnreadable = false;
    bool m_isCleared = false;
};

} // namespace brisklog
