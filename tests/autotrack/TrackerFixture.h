#pragma once

#include "autotrack/AutoTrackingManager.h"
#include "support/FakeClock.h"
#include "support/FakeFrontmostApplication.h"
#include "support/MemoryUserDefaults.h"
#include "support/RecordingLog.h"
#include "support/VirtualRunLoop.h"

#include <gtest/gtest.h>
#include <memory>

namespace brisklog::test {

/// What is printed when the history cannot be read, up to the reason.
inline constexpr const char* loadComplaint = "Fehler beim Laden der automatischen Tracking-Daten: ";

/// The wall clock beside a run loop that counts the time that really goes by: it can be set.
class WallClock final : public Clock {
public:
    explicit WallClock(const Clock& steady) : m_steady(steady) {}

    [[nodiscard]] Date now() const override { return m_steady.now().addingSeconds(m_shift); }

    [[nodiscard]] Calendar calendar() const override { return m_steady.calendar(); }

    void set(Date now) { m_shift = now.since(m_steady.now()); }

private:
    const Clock& m_steady;
    TimeInterval m_shift = 0;
};

/// A desktop with a tracker on it, in Berlin. The tracker is made by `start` and can be made again.
class Tracker : public ::testing::Test {
public:
    Tracker() { steadyClock.setZone("Europe/Berlin"); }

    void start() {
        // The earlier one ends first, as programs do.
        m_manager.reset();
        m_manager = std::make_unique<AutoTrackingManager>(platform());
    }

    [[nodiscard]] AutoTrackingPlatform platform() {
        return {.frontmost = frontmost,
                .userDefaults = userDefaults,
                .clock = clock,
                .runLoop = runLoop,
                .log = log};
    }

    [[nodiscard]] AutoTrackingManager& manager() { return *m_manager; }

    void quit() { m_manager.reset(); }

    /// An application is in front for a while, seen by the polls.
    void use(const std::string& application, TimeInterval seconds) {
        frontmost.show(application, "org." + application);
        runLoop.advance(seconds);
    }

    [[nodiscard]] const std::vector<DailyAppUsage>& days() { return manager().dailyUsageData; }

    [[nodiscard]] std::string stored() const {
        return dataValue(userDefaults, "autoTrackingData").value_or("nothing");
    }

    void store(const std::string& blob) { userDefaults.setValue("autoTrackingData", Data{blob}); }

    FakeClock steadyClock;
    VirtualRunLoop runLoop{steadyClock};
    WallClock clock{steadyClock};
    FakeFrontmostApplication frontmost;
    MemoryUserDefaults userDefaults;
    RecordingLog log;

private:
    std::unique_ptr<AutoTrackingManager> m_manager;
};

[[nodiscard]] std::vector<std::string> namesOf(const DailyAppUsage& day);

/// The moment of this time in Berlin ("2026-11-15T23:59:00").
[[nodiscard]] inline Date inBerlin(const char* isoTime) { return momentIn("Europe/Berlin", isoTime); }

} // namespace brisklog::test
