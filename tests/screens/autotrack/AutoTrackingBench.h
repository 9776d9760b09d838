#pragma once

#include "autotrack/screens/AutoTrackingScreen.h"
#include "overview/screens/CalendarDayButton.h"
#include "overview/screens/CalendarScreen.h"
#include "overview/screens/DayDetailWindow.h"
#include "platform/pictures/QtImages.h"
#include "screens/projects/ProjectScreenBench.h"
#include "support/screen/Windows.h"

#include <QTest>

namespace brisklog::test {

/// The tab "Auto-Tracking" with its real calendar and day windows, on Friday, 20 November 2026, in a zone
/// without clock changes; weeks begin on Monday.
class AutoTrackingBench : public ProjectScreenBench {
protected:
    static constexpr Date friday{816879600};

    AutoTrackingBench() {
        bench.clock.set(friday);
        actions.makeAutoTrackingPanel = [this] { return makePanel(); };
    }

    void openPanel() {
        open();
        click(QStringLiteral("Auto-Tracking"));
    }

    [[nodiscard]] AutoTrackingManager& manager() { return view->autoTrackingManager; }

    /// Records that an application was used for that long, that many days ago.
    void record(int daysAgo, const std::string& application, double seconds,
                const std::optional<std::string>& icon = std::nullopt) {
        const Date begin = friday.addingSeconds(-daysAgo * fullDay);
        const Day of = bench.clock.calendar().dayOf(begin);
        manager().dailyUsageData.mutate([&](std::vector<DailyAppUsage>& days) {
            auto found = std::ranges::find(days, of.start, &DailyAppUsage::date);
            if (found == days.end())
                found = days.insert(days.end(), {.id = Uuid::generate(), .date = of.start, .sessions = {}});
            found->sessions.push_back(
                {.id = Uuid::generate(),
                 .appName = application,
                 .bundleIdentifier = application,
                 .startTime = begin,
                 .endTime = begin.addingSeconds(seconds),
                 .iconData = icon ? std::optional(SharedData::of(*icon)) : std::nullopt});
        });
        settle();
    }

    [[nodiscard]] CalendarDayButton& cell(const QString& name) {
        auto* const found = findNamed<CalendarDayButton>(*screen, name);
        if (found != nullptr)
            return *found;
        ADD_FAILURE() << "no cell " << name.toStdString();
        std::abort();
    }

    /// The day windows on the screen, oldest first.
    [[nodiscard]] static std::vector<DayDetailWindow*> dayWindows() {
        return visibleWindows<DayDetailWindow>();
    }

    void press(Qt::Key key) {
        QTest::keyClick(QApplication::focusWidget(), key);
        settle();
    }

    [[nodiscard]] static QString focusedName() { return accessibleNameOf(*QApplication::focusWidget()); }

    DetailWindowManager registry;
    QtImages images;
    DayDetailWindows windows{images, [this] { return screen.get(); }};

private:
    QWidget* makePanel() {
        auto* const calendar = new CalendarScreen(
            {.autoTrackingManager = manager(),
             .detailWindows = registry,
             .clock = bench.clock,
             .tick = bench.store,
             .showDetailWindow = [this](const DetailWindowContent& content,
                                        const std::weak_ptr<DetailWindowDelegate>& delegate) {
                 return windows.show(content, delegate);
             }});
        return new AutoTrackingScreen(manager(), bench.frontmost, calendar);
    }
};

} // namespace brisklog::test
