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
/// saved at once; the open one is never stored and is lost when the program ends. There is no shortest
/// session, no idle detection and no joining of neighbours, on purpose.
class AutoTrackingManager final : public ObservableObject {
public:
    /// Loads the history; goes on tracking at once when the stored switch is on.
    explicit AutoTrackingManager(AutoTrackingPlatform platform);

    Published<bool> isTracking{*this};
    /// Days in the order in which their first session was closed; never sorted.
    Published<std::vector<DailyAppUsage>> dailyUsageData{*this};
    Published<std::optional<AppUsageSession>> currentSession{*this};

    /// Switches tracking on; the application in front gets its session at once. Called while on it leaves the
    /// earlier timer running beside the new one. This is deliberate: the switch never does it.
    void startTracking();

    /// Switches tracking off and files the open session.
    void stopTracking();

    /// Forgets all days; the open session and the switch stay as they are.
    void clearAllData();

    /// Forgets the record of the calendar day in which `date` lies, and nothing else.
    void clearDataForDay(Date date);

    /// Stores days and switch. Whoever writes `dailyUsageData` from outside calls this next.
    void saveData();

private:
    void loadData();
    void updateCurrentSession();
    void closeCurrentSession();
    void openSession(const DesktopApplication& application, std::string name, std::string identifier);
    void saveDays(std::size_t unchangedDays);

    AutoTrackingPlatform m_platform;
    SharedDataPool m_icons;
    UsageHistoryStorage m_storage;
    /// Of `dailyUsageData`, without what was written from outside since it was last saved.
    std::uint64_t m_ownRevision = 0;
    std::unique_ptr<Timer> m_timer;
    /// Timers that were replaced while they ran.
    std::vector<std::unique_ptr<Timer>> m_replacedTimers;
};

} // namespace brisklog
