#include "autotrack/AutoTrackingManager.h"

#include "foundation/Calendar.h"
#include "foundation/Text.h"

#include <algorithm>
#include <utility>

namespace brisklog {
namespace {

constexpr TimeInterval checkInterval = 1;

constexpr const char* enabledKey = "autoTrackingEnabled";

std::size_t indexOfDay(const std::vector<DailyAppUsage>& days, const Day& day) {
    const auto found = std::ranges::find_if(
        days, [&day](Date date) { return day.contains(date); }, &DailyAppUsage::date);
    return static_cast<std::size_t>(found - days.begin());
}

} // namespace

AutoTrackingManager::AutoTrackingManager(AutoTrackingPlatform platform)
    : m_platform(std::move(platform)), m_storage(m_platform.userDefaults, m_platform.clock, m_icons) {
    loadData();
}

void AutoTrackingManager::startTracking() {
    isTracking = true;
    m_platform.frontmost.beginWatching();
    updateCurrentSession();
    if (m_timer)
        m_replacedTimers.push_back(std::move(m_timer));
    m_timer = m_platform.runLoop.repeatEvery(checkInterval, [this] { updateCurrentSession(); });
    saveData();
}

void AutoTrackingManager::stopTracking() {
    isTracking = false;
    m_platform.frontmost.endWatching();
    m_timer.reset();
    endSession();
    saveData();
}

void AutoTrackingManager::clearAllData() {
    dailyUsageData = {};
    saveData();
}

void AutoTrackingManager::clearDataForDay(Date date) {
    const Day day = m_platform.clock.calendar().dayOf(date);
    std::size_t index = 0;
    ++m_ownRevision;
    dailyUsageData.mutate([&](std::vector<DailyAppUsage>& days) {
        index = indexOfDay(days, day);
        std::erase_if(days, [&day](const DailyAppUsage& usage) { return day.contains(usage.date); });
    });
    saveDays(index);
}

void AutoTrackingManager::updateCurrentSession() {
    if (!isTracking)
        return;
    const auto application = m_platform.frontmost.current();
    // When nobody tells any more, the session ends; while it is only unknown, it stays open.
    if (!application && !m_platform.frontmost.mayReport())
        endSession();
    if (!application)
        return;
    // Malformed text could never be saved, nor could anything recorded after it.
    auto name = text::asWellFormedUtf8(application->localizedName.value_or("Unbekannte App"));
    auto identifier = text::asWellFormedUtf8(application->bundleIdentifier.value_or("unknown"));
    if (currentSession.get() && currentSession.get()->bundleIdentifier == identifier)
        return;
    if (currentSession.get())
        closeCurrentSession();
    openSession(*application, std::move(name), std::move(identifier));
}

void AutoTrackingManager::endSession() {
    if (!currentSession.get())
        return;
    closeCurrentSession();
    currentSession = std::nullopt;
}

/// Files the whole session under the day on which it began, even if it ran past midnight.
void AutoTrackingManager::closeCurrentSession() {
    AppUsageSession closed = *currentSession.get();
    closed.endTime = m_platform.clock.now();
    const Day day = m_platform.clock.calendar().dayOf(closed.startTime);
    std::size_t index = 0;
    ++m_ownRevision;
    dailyUsageData.mutate([&](std::vector<DailyAppUsage>& days) {
        index = indexOfDay(days, day);
        if (index == days.size())
            days.push_back({.id = Uuid::generate(), .date = day.start, .sessions = {}});
        days[index].sessions.push_back(std::move(closed));
    });
    saveDays(index + 1);
}

void AutoTrackingManager::openSession(const DesktopApplication& application, std::string name,
                                      std::string identifier) {
    const auto icon = m_platform.frontmost.iconPng(application);
    currentSession = AppUsageSession{.id = Uuid::generate(),
                                     .appName = std::move(name),
                                     .bundleIdentifier = std::move(identifier),
                                     .startTime = m_platform.clock.now(),
                                     .endTime = std::nullopt,
                                     .iconData = icon ? std::optional(m_icons.shared(SharedData::of(*icon)))
                                                      : std::nullopt};
}

void AutoTrackingManager::saveData() { saveDays(dailyUsageData->size()); }

/// The first `unchangedDays` days are as they were last saved, except that the last of these may have gained
/// sessions. If the list has been written from outside since, none count as unchanged.
void AutoTrackingManager::saveDays(std::size_t unchangedDays) {
    const std::uint64_t revision = dailyUsageData.revision();
    if (std::exchange(m_ownRevision, revision) != revision) {
        unchangedDays = 0;
        if (dailyUsageData->empty())
            m_storage.removeUnreadable();
    }
    if (dailyUsageData->empty())
        m_icons.forgetUnused();
    if (const auto saved = m_storage.save(dailyUsageData, unchangedDays); saved.failed()) {
        m_platform.log.print("Fehler beim Speichern der automatischen Tracking-Daten: " +
                             saved.error().description);
        return;
    }
    m_platform.userDefaults.setValue(enabledKey, isTracking.get());
}

void AutoTrackingManager::loadData() {
    auto loaded = m_storage.load();
    if (loaded.failed())
        m_platform.log.print("Fehler beim Laden der automatischen Tracking-Daten: " +
                             loaded.error().description);
    else
        dailyUsageData = std::move(loaded).value();
    m_ownRevision = dailyUsageData.revision();
    isTracking = truthValue(m_platform.userDefaults, enabledKey).value_or(false);
    if (isTracking)
        startTracking();
}

} // namespace brisklog
