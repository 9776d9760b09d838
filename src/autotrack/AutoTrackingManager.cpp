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
    if (currentSession.get()) {
        closeCurrentSession();
        currentSession = std::nullopt;
    }
    saveData();
}

void AutoTrackingManager::clearAllData() {
    dailyUsageData = {};
    saveData();
}

void AutoTrackingManager::clearDataForDay(Date date) {
    const Day day = m_platform.clock.calendar().dayOf(date);
    changeHistory([&](std::vector<DailyAppUsage>& days) {
        m_storage.noteChangeFrom(indexOfDay(days, day));
        std::erase_if(days, [&day](const DailyAppUsage& usage) { return day.contains(usage.date); });
    });
    saveData();
}

void AutoTrackingManager::updateCurrentSession() {
    if (!isTracking)
        return;
    const auto application = m_platform.frontmost.current();
    if (!application)
        return;
    // Texts that are none could never be saved, and with them nothing that follows.
    auto name = text::asWellFormedUtf8(application->localizedName.value_or("Unbekannte App"));
    auto identifier = text::asWellFormedUtf8(application->bundleIdentifier.value_or("unknown"));
    if (currentSession.get() && currentSession.get()->bundleIdentifier == identifier)
        return;
    if (currentSession.get())
        closeCurrentSession();
    openSession(*application, std::move(name), std::move(identifier));
}

void AutoTrackingManager::closeCurrentSession() {
    AppUsageSession closed = *currentSession.get();
    closed.endTime = m_platform.clock.now();
    saveSession(closed);
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

/// Files the whole session under the day on which it began, also when it ran past midnight.
void AutoTrackingManager::saveSession(const AppUsageSession& session) {
    const Day day = m_platform.clock.calendar().dayOf(session.startTime);
    changeHistory([&](std::vector<DailyAppUsage>& days) {
        const std::size_t index = indexOfDay(days, day);
        if (index == days.size())
            days.push_back({.id = Uuid::generate(), .date = day.start, .sessions = {}});
        days[index].sessions.push_back(session);
        m_storage.noteSessionAppended(index);
    });
    saveData();
}

void AutoTrackingManager::saveData() {
    noticeForeignChange();
    if (dailyUsageData->empty())
        m_icons.forgetUnused();
    if (const auto saved = m_storage.save(dailyUsageData); saved.failed()) {
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
    m_knownRevision = dailyUsageData.revision();
    isTracking = truthValue(m_platform.userDefaults, enabledKey).value_or(false);
    if (isTracking)
        startTracking();
}

void AutoTrackingManager::noticeForeignChange() {
    if (dailyUsageData.revision() == m_knownRevision)
        return;
    if (dailyUsageData->empty())
        m_storage.noteCleared();
    else
        m_storage.noteChangeFrom(0);
    m_knownRevision = dailyUsageData.revision();
}

/// A change of which the storage is told what it leaves untouched.
template <class Change>
void AutoTrackingManager::changeHistory(Change&& change) {
    noticeForeignChange();
    ++m_knownRevision;
    dailyUsageData.mutate(std::forward<Change>(change));
}

} // namespace brisklog
