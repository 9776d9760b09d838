#include "DashboardDefinitions.h"
#include "DashboardHistory.h"
#include "support/FakeClock.h"

#include <cmath>
#include <gtest/gtest.h>
#include <random>

namespace brisklog::test {
namespace {

class DashboardFiguresTest : public testing::Test {
protected:
    [[nodiscard]] static Date at(const char* isoTime) { return momentIn("Europe/Berlin", isoTime); }

    void add(Date start, std::optional<Date> end) { projects[0].entries.push_back(entryBetween(start, end)); }

    void run(const ActiveEntryState& timer) { timers[timer.id] = timer; }

    [[nodiscard]] DashboardFigures figures() const {
        return dashboardFigures(projects, timers, calendar, now);
    }

    Calendar calendar{QTimeZone("Europe/Berlin")};
    Date now = at("2026-11-20T14:30:00");
    std::vector<Project> projects{projectWith(60)};
    TimeTrackingStore::ActiveEntries timers;
};

TEST_F(DashboardFiguresTest, nothingAtAllIsZeroEverywhere) {
    projects.clear();
    EXPECT_EQ(figures(), DashboardFigures{});
}

TEST_F(DashboardFiguresTest, todayIsWhatStartedTodayTimersIncluded) {
    add(at("2026-11-20T00:00:00"), at("2026-11-20T01:00:00"));
    add(at("2026-11-19T23:59:59"), at("2026-11-20T08:00:00"));
    run(timerFrom(at("2026-11-20T14:00:00"), projects[0].id));
    EXPECT_EQ(figures().todaysWork, hour + hour / 2);
}

TEST_F(DashboardFiguresTest, entryOverMidnightCountsInTheWeekButOnNoDay) {
    add(at("2026-11-18T23:00:00"), at("2026-11-19T01:00:00"));
    EXPECT_EQ(figures().weeklyTotal, 2 * hour);
    EXPECT_EQ(figures().hoursWorked, (std::array<double, 7>{}));
}

TEST_F(DashboardFiguresTest, entryThatEndsAtMidnightSharpCountsOnNoDay) {
    add(at("2026-11-18T23:00:00"), at("2026-11-19T00:00:00"));
    EXPECT_EQ(figures().hoursWorked, (std::array<double, 7>{}));
    projects[0].entries[0].endTime = at("2026-11-18T23:59:59");
    EXPECT_NEAR(figures().hoursWorked[4], 3599.0 / 3600, 1e-9);
}

TEST_F(DashboardFiguresTest, timerRunningSinceYesterdayCountsInFullYesterdayAndNotToday) {
    run(timerFrom(at("2026-11-19T22:30:00"), projects[0].id));
    EXPECT_EQ(figures().hoursWorked[5], 16);
    EXPECT_EQ(figures().hoursWorked[6], 0);
    EXPECT_EQ(figures().todaysWork, 0);
    EXPECT_EQ(figures().weeklyTotal, 16 * hour);
}

TEST_F(DashboardFiguresTest, pausedTimerCountsUpToItsPause) {
    ActiveEntryState timer = timerFrom(at("2026-11-20T12:30:00"), projects[0].id);
    timer.isPaused = true;
    timer.pauseStartTime = at("2026-11-20T13:30:00");
    // Earlier pauses are not deducted.
    timer.totalPauseDuration = 600;
    run(timer);
    EXPECT_EQ(figures().todaysWork, hour);
    EXPECT_EQ(figures().projects[0].workingTime, hour);
}

TEST_F(DashboardFiguresTest, weekBeginsSixDaysBeforeTodayAndHasNoEnd) {
    add(at("2026-11-14T00:00:00"), at("2026-11-14T01:00:00"));
    add(at("2026-11-13T23:59:59"), at("2026-11-14T01:00:00"));
    add(at("2026-12-24T10:00:00"), at("2026-12-24T12:00:00"));
    EXPECT_EQ(figures().weeklyTotal, 3 * hour);
    EXPECT_EQ(figures().hoursWorked[0], 1);
}

TEST_F(DashboardFiguresTest, earningsAreAtTheProjectsRateWithoutItsTimers) {
    add(at("2026-11-02T10:00:00"), at("2026-11-02T12:00:00"));
    projects[0].entries[0].hourlyRate = 500;
    run(timerFrom(at("2026-11-20T13:30:00"), projects[0].id));
    EXPECT_EQ(figures().projects[0].earnings, 120);
    EXPECT_EQ(figures().projects[0].workingTime, 3 * hour);
    EXPECT_EQ(figures().totalEarnings, 120);
}

TEST_F(DashboardFiguresTest, projectWithoutARateEarnsNothingAndHasNoRevenue) {
    projects.push_back(projectWith({}, {entryBetween(at("2026-11-02T10:00:00"), at("2026-11-02T12:00:00"))}));
    EXPECT_FALSE(figures().projects[1].earnings.has_value());
    EXPECT_EQ(figures().totalEarnings, 0);
    EXPECT_EQ(figures().revenue, (std::array<double, 3>{}));
}

TEST_F(DashboardFiguresTest, revenueIsWhatStartedAndEndedInTheMonth) {
    add(at("2026-09-01T00:00:00"), at("2026-09-01T01:00:00"));
    add(at("2026-10-31T23:00:00"), at("2026-11-01T01:00:00"));
    add(at("2026-10-31T21:00:00"), at("2026-10-31T23:00:00"));
    add(at("2026-08-31T21:00:00"), at("2026-08-31T23:00:00"));
    EXPECT_EQ(figures().revenue, (std::array<double, 3>{60, 120, 0}));
}

TEST_F(DashboardFiguresTest, openEntryOfThisMonthEndsNowForItsRevenue) {
    add(at("2026-11-20T13:30:00"), std::nullopt);
    EXPECT_EQ(figures().revenue[2], 60);
    EXPECT_EQ(figures().todaysWork, hour);
    EXPECT_EQ(figures().hoursWorked[6], 1);
}

TEST_F(DashboardFiguresTest, timersAddNoRevenue) {
    run(timerFrom(at("2026-11-20T13:30:00"), projects[0].id));
    EXPECT_EQ(figures().revenue, (std::array<double, 3>{}));
}

TEST_F(DashboardFiguresTest, timerOfADeletedProjectCountsInTheTotalsOnly) {
    run(timerFrom(at("2026-11-20T13:30:00"), Uuid::generate()));
    EXPECT_EQ(figures().totalWork, hour);
    EXPECT_EQ(figures().projects[0].workingTime, 0);
}

TEST_F(DashboardFiguresTest, monthsAreTheLastThreeAlsoFromTheirLastDay) {
    now = at("2026-05-31T12:00:00");
    const auto months = dashboardMonths(calendar, now);
    EXPECT_EQ(months[0], at("2026-03-31T12:00:00"));
    EXPECT_EQ(months[1], at("2026-04-30T12:00:00"));
    EXPECT_EQ(months[2], now);
}

/// Histories full of unusual cases: entries that span midnight or months, have no end or end before they
/// start, timers of unknown projects; around clock changes and the turn of the year.
class RandomHistory {
public:
    RandomHistory(unsigned seed, const Calendar& calendar, Date around) : m_random(seed) {
        for (int i = 0; i < 5; ++i)
            projects.push_back(projectWith(i % 2 == 0 ? std::optional(50.0 + i) : std::nullopt));
        for (int i = 0; i < 400; ++i)
            pick().entries.push_back(entry(calendar, around));
        for (int i = 0; i < 6; ++i) {
            const ActiveEntryState timer = aTimer(around);
            timers[timer.id] = timer;
        }
    }

    std::vector<Project> projects;
    TimeTrackingStore::ActiveEntries timers;

private:
    [[nodiscard]] double between(double low, double high) {
        return std::uniform_real_distribution(low, high)(m_random);
    }

    Project& pick() { return projects[m_random() % projects.size()]; }

    Date start(const Calendar& calendar, Date around) {
        const Date moment = around.addingSeconds(between(-100, 1) * 24 * hour);
        const Date midnight = calendar.dayOf(moment).start;
        switch (m_random() % 4) {
        case 0:
            return midnight;
        case 1:
            return midnight.addingSeconds(-between(0, 2 * hour));
        case 2:
            return calendar.startOfMonth(moment);
        default:
            return moment;
        }
    }

    TimeEntry entry(const Calendar& calendar, Date around) {
        const Date begin = start(calendar, around);
        switch (m_random() % 8) {
        case 0:
            return entryBetween(begin, std::nullopt);
        case 1:
            return entryBetween(begin, calendar.addingDays(calendar.dayOf(begin).start, 1));
        case 2:
            return entryBetween(begin, begin.addingSeconds(-between(0, 40 * hour)));
        default:
            return entryBetween(begin, begin.addingSeconds(between(0, 30 * hour)));
        }
    }

    ActiveEntryState aTimer(Date around) {
        const bool isOrphan = m_random() % 4 == 0;
        ActiveEntryState timer =
            timerFrom(around.addingSeconds(-between(0, 60 * hour)), isOrphan ? Uuid::generate() : pick().id);
        timer.isPaused = m_random() % 2 == 0;
        if (timer.isPaused)
            timer.pauseStartTime = around.addingSeconds(-between(0, hour));
        return timer;
    }

    std::mt19937 m_random;
};

struct Place {
    const char* zone;
    const char* now;
};

void PrintTo(const Place& place, std::ostream* out) { *out << place.zone << ", " << place.now; }

class OnePass : public testing::TestWithParam<Place> {};

void expectNear(const DashboardFigures& onePass, const DashboardFigures& oneByOne) {
    constexpr double rounding = 1e-6;
    EXPECT_NEAR(onePass.todaysWork, oneByOne.todaysWork, rounding);
    EXPECT_NEAR(onePass.totalWork, oneByOne.totalWork, rounding);
    EXPECT_NEAR(onePass.weeklyTotal, oneByOne.weeklyTotal, rounding);
    EXPECT_NEAR(onePass.totalEarnings, oneByOne.totalEarnings, rounding);
    ASSERT_EQ(onePass.projects.size(), oneByOne.projects.size());
    for (std::size_t i = 0; i < onePass.projects.size(); ++i) {
        EXPECT_NEAR(onePass.projects[i].workingTime, oneByOne.projects[i].workingTime, rounding);
        ASSERT_EQ(onePass.projects[i].earnings.has_value(), oneByOne.projects[i].earnings.has_value());
        EXPECT_NEAR(onePass.projects[i].earnings.value_or(0), oneByOne.projects[i].earnings.value_or(0),
                    rounding);
    }
    for (std::size_t i = 0; i < onePass.hoursWorked.size(); ++i)
        EXPECT_NEAR(onePass.hoursWorked[i], oneByOne.hoursWorked[i], rounding) << "day " << i;
    for (std::size_t i = 0; i < onePass.revenue.size(); ++i)
        EXPECT_NEAR(onePass.revenue[i], oneByOne.revenue[i], rounding) << "month " << i;
}

TEST_P(OnePass, givesWhatTheDefinitionsGiveOneByOne) {
    const Calendar calendar{QTimeZone(GetParam().zone)};
    const Date now = momentIn(GetParam().zone, GetParam().now);
    for (unsigned seed = 1; seed <= 40; ++seed) {
        SCOPED_TRACE(seed);
        const RandomHistory history(seed, calendar, now);
        expectNear(dashboardFigures(history.projects, history.timers, calendar, now),
                   DashboardDefinitions{history.projects, history.timers, calendar, now}.all());
    }
}

INSTANTIATE_TEST_SUITE_P(Places, OnePass,
                         testing::Values(Place{"Europe/Berlin", "2026-11-20T14:30:00"},
                                         Place{"Europe/Berlin", "2026-03-31T00:00:00"},
                                         Place{"Europe/Berlin", "2026-10-26T23:59:59"},
                                         Place{"Europe/Berlin", "2026-10-25T02:30:00"},
                                         Place{"Europe/Berlin", "2027-01-01T00:00:00"},
                                         Place{"Europe/Berlin", "2028-02-29T12:00:00"},
                                         // The clocks skip midnight on the day they change.
                                         Place{"America/Asuncion", "2023-10-03T09:00:00"},
                                         Place{"Africa/Cairo", "2026-04-27T09:00:00"},
                                         // A whole day was skipped.
                                         Place{"Pacific/Apia", "2012-01-02T09:00:00"}));

} // namespace
} // namespace brisklog::test
