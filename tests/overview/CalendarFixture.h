#pragma once

#include "foundation/GermanFormat.h"
#include "overview/CalendarView.h"
#include "support/FakeClock.h"
#include "support/FakeFrontmostApplication.h"
#include "support/MemoryUserDefaults.h"
#include "support/RecordingLog.h"
#include "support/VirtualRunLoop.h"

#include <memory>
#include <string>
#include <vector>

namespace brisklog::test {

/// Windows that a test opens and closes, with a record of what they show.
class RecordedWindows {
public:
    struct Window {
        DetailWindowContent content;
        std::weak_ptr<DetailWindowDelegate> delegate;
        bool isOpen = true;
    };

    [[nodiscard]] std::shared_ptr<DetailWindowController> show(const DetailWindowContent& content,
                                                               std::weak_ptr<DetailWindowDelegate> delegate) {
        opened.push_back(std::make_shared<Window>(Window{content, std::move(delegate)}));
        return std::make_shared<Controller>(opened.back());
    }

    void close(std::size_t window) {
        opened.at(window)->isOpen = false;
        if (const auto delegate = opened.at(window)->delegate.lock())
            delegate->windowWillClose();
    }

    std::vector<std::shared_ptr<Window>> opened;

private:
    class Controller final : public DetailWindowController {
    public:
        explicit Controller(std::shared_ptr<Window> window) : m_window(std::move(window)) {}

        [[nodiscard]] bool isWindowVisible() const override { return m_window->isOpen; }

    private:
        std::shared_ptr<Window> m_window;
    };
};

/// A tracker's days, a calendar over them, and windows that are only recorded.
struct CalendarBench {
    explicit CalendarBench(const char* timeZone = "Europe/Berlin", Qt::DayOfWeek firstWeekday = Qt::Monday)
        : zone(timeZone) {
        clock.setCalendar(Calendar(QTimeZone(zone), firstWeekday));
    }

    [[nodiscard]] CalendarServices services() {
        return {.autoTrackingManager = manager,
                .detailWindows = registry,
                .clock = clock,
                .tick = manager,
                .showDetailWindow = [this](const DetailWindowContent& content,
                                           const std::weak_ptr<DetailWindowDelegate>& delegate) {
                    return windows.show(content, delegate);
                }};
    }

    /// The moment at which clocks in the zone show this ("2026-11-15T09:00:00").
    [[nodiscard]] Date at(const char* isoTime) const { return momentIn(zone, isoTime); }

    /// Records an hour's use of one application, beginning at this moment.
    void record(Date begin, const std::string& application = "Editor") {
        manager.dailyUsageData.mutate([&](std::vector<DailyAppUsage>& days) {
            days.push_back({.id = Uuid::generate(),
                            .date = clock.calendar().dayOf(begin).start,
                            .sessions = {{.id = Uuid::generate(),
                                          .appName = application,
                                          .bundleIdentifier = application,
                                          .startTime = begin,
                                          .endTime = begin.addingSeconds(3600),
                                          .iconData = std::nullopt}}});
        });
    }

    const char* zone;
    FakeClock clock;
    VirtualRunLoop runLoop{clock};
    FakeFrontmostApplication frontmost;
    MemoryUserDefaults userDefaults;
    RecordingLog log;
    AutoTrackingManager manager{{.frontmost = frontmost,
                                 .userDefaults = userDefaults,
                                 .clock = clock,
                                 .runLoop = runLoop,
                                 .log = log}};
    DetailWindowManager registry;
    RecordedWindows windows;
};

} // namespace brisklog::test
