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

/// What is printed before the reason when the history cannot be read.
inline constexpr const char* loadComplaint = "Fehler beim Laden der automatischen Tracking-Daten: ";

/// A wall clock that can be set, while the run loop keeps counting the time that really passes.
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

/// A desktop in Berlin with a tracker. `start` makes the tracker; starting again is a restart.
class Tracker : public ::testing::Test {
public:
    Tracker() { steadyClock.setZone("Europe/Berlin"); }

    void start() {
        // The old one is destroyed before the new one is made, as in a real restart.
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

    /// Keeps an application in front for a while, as the tracker sees it by polling.
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

/// The moment at which clocks in Berlin show this time ("2026-11-15T23:59:00").
[[nodiscard]] inline Date inBerlin(const char* isoTime) { return momentIn("Europe/Berlin", isoTime); }

} // namespace brisklog::test
