#pragma once

#include "autotrack/DailyAppUsage.h"
#include "autotrack/UsageHistoryStorage.h"
#include "foundation/Observable.h"
#include "platform/Clock.h"
#include "platform/FrontmostApplication.h"
#include "platform/Log.h"
#include "platform/RunLoop.h"

#include <cstdint>
#include <memory>
#include <optional>
#include <vector>

namespace brisklog {

/// The outside world as the tracker needs it.
struct AutoTrackingPlatform {
    FrontmostApplication& frontmost;
    LargeValueStore& userDefaults;
    const Clock& clock;
    RunLoop& runLoop;
    Log& log;
};

/// Records, while switched on, which application is frontmost and from when to when. Every closed session is
/// saved at once; the open one is never stored and is lost when the program ends. Deliberately, there is no
/// minimum session length, no idle detection and no merging of adjacent sessions.
class AutoTrackingManager final : public ObservableObject {
public:
    /// Loads the history; resumes tracking at once if the stored switch is on.
    explicit AutoTrackingManager(AutoTrackingPlatform platform);

    Published<bool> isTracking{*this};
    /// Days in the order in which their first session was closed; never sorted.
    Published<std::vector<DailyAppUsage>> dailyUsageData{*this};
    Published<std::optional<AppUsageSession>> currentSession{*this};

    /// Switches tracking on; a session of the frontmost application begins at once. If tracking is already
    /// on, the earlier timer is deliberately left running beside the new one; the switch never causes this.
    void startTracking();

    /// Switches tracking off and files the open session.
    void stopTracking();

    /// Deletes all days; the open session and the switch stay as they are.
    void clearAllData();

    /// Deletes the record of the calendar day that contains `date`, and nothing else.
    void clearDataForDay(Date date);

    /// Stores the days and the switch. Must be called after writing `dailyUsageData` from outside.
    void saveData();

private:
    void loadData();
    void updateCurrentSession();
    void endSession();
    void closeCurrentSession();
    void openSession(const DesktopApplication& application, std::string name, std::string identifier);
    void saveDays(std::size_t unchangedDays);

    AutoTrackingPlatform m_platform;
    SharedDataPool m_icons;
    UsageHistoryStorage m_storage;
    /// The revision of `dailyUsageData` if it has not been written from outside since it was last saved.
    std::uint64_t m_ownRevision = 0;
    std::unique_ptr<Timer> m_timer;
    /// Timers that were replaced while they ran.
    std::vector<std::unique_ptr<Timer>> m_replacedTimers;
};

} // namespace brisklog
