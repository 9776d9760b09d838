#include "overview/DashboardView.h"

#include "DashboardHistory.h"
#include "support/MemoryUserDefaults.h"
#include "support/RecordingFiles.h"
#include "support/RecordingLog.h"
#include "support/TemporaryHome.h"
#include "support/VirtualRunLoop.h"
#include "support/WritableStore.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <limits>

namespace brisklog::test {
namespace {

using testing::ElementsAre;

class DashboardViewTest : public testing::Test {
protected:
    DashboardViewTest() {
        clock.setZone("Europe/Berlin");
        clock.set(at("2026-11-20T14:30:00"));
    }

    [[nodiscard]] static Date at(const char* isoTime) { return momentIn("Europe/Berlin", isoTime); }

    void setProjects(std::vector<Project> projects) { writable(store.projects) = std::move(projects); }

    [[nodiscard]] static std::string visible(std::string text) {
        for (auto space = text.find("\u00A0"); space != text.npos; space = text.find("\u00A0"))
            text.replace(space, 2, "·");
        return text;
    }

    TemporaryHome home;
    RecordingFiles files;
    MemoryUserDefaults defaults;
    FakeClock clock;
    VirtualRunLoop runLoop{clock};
    RecordingLog log;
    TimeTrackingStore store{{files, defaults, clock, runLoop, log}};
    DashboardView view{{store, clock, runLoop}};
};

TEST_F(DashboardViewTest, withoutProjectsEverythingReadsAsZero) {
    setProjects({});
    const DashboardContent content = view.content();
    EXPECT_EQ(content.currentDate, "Freitag, 20. November 2026");
    for (const std::string* text :
         {&content.todaysWork, &content.totalWork, &content.weeklyTotal, &content.averagePerDay})
        EXPECT_EQ(visible(*text), "0·h 0·min");
    EXPECT_EQ(visible(content.totalEarnings), "0,00·€");
    EXPECT_EQ(visible(content.currentMonth), "0,00·€");
    EXPECT_TRUE(content.projects.empty());
    EXPECT_TRUE(content.timers.empty());
    ASSERT_EQ(content.week.bars.size(), 7U);
    for (const ChartBar& bar : content.week.bars)
        EXPECT_EQ(bar.value, 0);
    EXPECT_THAT(content.week.valueLabels, ElementsAre("0min", "1h"));
}

TEST_F(DashboardViewTest, axesAreLabelledInGerman) {
    std::vector<std::string> days;
    for (const ChartBar& bar : view.content().week.bars)
        days.push_back(bar.label);
    EXPECT_THAT(days, ElementsAre("Sa.", "So.", "Mo.", "Di.", "Mi.", "Do.", "Fr."));
    std::vector<std::string> months;
    for (const ChartBar& bar : view.content().revenue.bars)
        months.push_back(bar.label);
    EXPECT_THAT(months, ElementsAre("Sept.", "Okt.", "Nov."));
    EXPECT_EQ(view.content().week.valueTitle, "Zeit");
    EXPECT_EQ(view.content().week.labelTitle, "Tag");
    EXPECT_EQ(view.content().revenue.valueTitle, "Umsatz");
    EXPECT_EQ(view.content().revenue.labelTitle, "Monat");
}

TEST_F(DashboardViewTest, barsSayTheirExactValue) {
    setProjects({projectWith(95, {entryBetween(at("2026-11-20T08:00:00"), at("2026-11-20T12:48:00"))})});
    const DashboardContent content = view.content();
    EXPECT_EQ(visible(content.week.bars.back().description), "Fr.: 4·h 48·min");
    EXPECT_EQ(visible(content.revenue.bars.back().description), "Nov.: 456,00·€");
    EXPECT_THAT(content.week.valueLabels, ElementsAre("0min", "1h", "2h", "3h", "4h", "5h"));
    EXPECT_EQ(visible(content.revenue.valueLabels.back()), "500·€");
}

TEST_F(DashboardViewTest, smallMoneyKeepsItsCentsOnTheAxis) {
    setProjects({projectWith(1, {entryBetween(at("2026-11-20T08:00:00"), at("2026-11-20T08:30:00"))})});
    EXPECT_EQ(visible(view.content().revenue.valueLabels[1]), "0,10·€");
}

TEST_F(DashboardViewTest, projectsAreListedInTheirOrderWithoutEarningsWhereThereIsNoRate) {
    setProjects({projectWith(95, {entryBetween(at("2026-11-02T08:00:00"), at("2026-11-02T09:30:00"))}),
                 projectWith({}, {entryBetween(at("2026-11-02T08:00:00"), at("2026-11-02T08:05:00"))})});
    writable(store.projects).mutate([](std::vector<Project>& all) {
        all[0].name = "Website\nRelaunch";
        all[1].name = "Intern";
    });
    const auto rows = view.content().projects;
    ASSERT_EQ(rows.size(), 2U);
    EXPECT_EQ(rows[0].name, "Website Relaunch");
    EXPECT_EQ(visible(rows[0].workingTime), "1·h 30·min");
    EXPECT_EQ(visible(rows[0].earnings.value()), "142,50·€");
    EXPECT_FALSE(rows[1].earnings.has_value());
}

TEST_F(DashboardViewTest, averageIsAlwaysByTheSevenDays) {
    setProjects({projectWith({}, {entryBetween(at("2026-11-20T00:00:00"), at("2026-11-20T07:00:00"))})});
    EXPECT_EQ(visible(view.content().averagePerDay), "1·h 0·min");
}

TEST_F(DashboardViewTest, timersAreListedByTheirStart) {
    setProjects({projectWith({})});
    store.startTracking("Zuerst");
    clock.advance(60);
    store.startTracking("Danach");
    clock.advance(7);
    const auto rows = view.content().timers;
    ASSERT_EQ(rows.size(), 2U);
    EXPECT_EQ(rows[0].taskName, "Zuerst");
    EXPECT_EQ(rows[0].projectName, "Projekt");
    EXPECT_EQ(rows[0].started, "Gestartet: 14:30");
    EXPECT_EQ(rows[0].duration, "00:01:07");
    EXPECT_EQ(rows[1].duration, "00:00:07");
}

TEST_F(DashboardViewTest, pausedTimerStandsStillAndSaysSo) {
    store.startTracking("Entwurf");
    clock.advance(60);
    store.pauseTracking(store.activeEntries->begin()->first);
    clock.advance(600);
    EXPECT_TRUE(view.content().timers[0].isPaused);
    EXPECT_EQ(view.content().timers[0].duration, "00:01:00");
}

TEST_F(DashboardViewTest, timerOfADeletedProjectHasNoRow) {
    store.startTracking("Entwurf");
    setProjects({projectWith({})});
    EXPECT_TRUE(view.content().timers.empty());
    EXPECT_TRUE(view.content().hasTimers);
}

TEST_F(DashboardViewTest, refreshesEveryThirtySecondsWhileItIsShown) {
    int announcements = 0;
    const Subscription subscription = view.observe([&] { ++announcements; });
    const auto timersBefore = runLoop.timerCount();
    runLoop.advance(120);
    EXPECT_EQ(announcements, 0);
    view.appear();
    const Uuid before = view.refreshID;
    runLoop.advance(29);
    EXPECT_EQ(announcements, 0);
    runLoop.advance(31);
    EXPECT_EQ(announcements, 2);
    EXPECT_NE(view.refreshID.get(), before);
    view.disappear();
    runLoop.advance(120);
    EXPECT_EQ(announcements, 2);
    EXPECT_EQ(runLoop.timerCount(), timersBefore);
}

TEST_F(DashboardViewTest, absurdRateIsSurvived) {
    setProjects({projectWith(1e308, {entryBetween(at("2026-11-02T08:00:00"), at("2026-11-12T08:00:00"))})});
    const DashboardContent content = view.content();
    EXPECT_EQ(content.totalEarnings, "0,00 €");
    EXPECT_EQ(content.revenue.scale.share(content.revenue.bars.back().value), 1);
}

TEST_F(DashboardViewTest, changesNothing) {
    store.startTracking("Entwurf");
    files.written.clear();
    (void)view.content();
    view.appear();
    runLoop.advance(90);
    EXPECT_TRUE(files.written.empty());
}

TEST(AxisHours, asTheyAreNamed) {
    EXPECT_EQ(formatHoursForAxis(0.5), "30min");
    EXPECT_EQ(formatHoursForAxis(2), "2h");
    EXPECT_EQ(formatHoursForAxis(1.25), "1h 15min");
    EXPECT_EQ(formatHoursForAxis(0), "0min");
    EXPECT_EQ(formatHoursForAxis(0.75), "45min");
    EXPECT_EQ(formatHoursForAxis(3.01), "3h") << "less than a minute is cut off";
    EXPECT_EQ(formatHoursForAxis(std::numeric_limits<double>::infinity()), "");
}

} // namespace
} // namespace brisklog::test
