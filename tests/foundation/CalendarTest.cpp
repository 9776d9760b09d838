#include "foundation/Calendar.h"

#include "support/FakeClock.h"

#include <gtest/gtest.h>
#include <limits>

namespace brisklog::test {
namespace {

class BerlinCalendar : public testing::Test {
protected:
    [[nodiscard]] static Date at(const char* isoTime) { return momentIn("Europe/Berlin", isoTime); }

    const Calendar calendar{QTimeZone("Europe/Berlin")};
};

TEST_F(BerlinCalendar, ordinaryDayHas24Hours) {
    const Date noon = at("2026-11-15T12:00:00");
    EXPECT_EQ(calendar.addingDays(noon, 1), at("2026-11-16T12:00:00"));
    EXPECT_EQ(calendar.addingDays(noon, 1).since(noon), 24 * hour);
    EXPECT_EQ(calendar.addingDays(noon, 0), noon);
    EXPECT_EQ(calendar.addingDays(noon, -1), at("2026-11-14T12:00:00"));
}

TEST_F(BerlinCalendar, dayOfTheSpringChangeHas23Hours) {
    const Date before = at("2026-03-28T12:00:00");
    EXPECT_EQ(calendar.addingDays(before, 1).since(before), 23 * hour);
    EXPECT_EQ(calendar.addingDays(before, 1), at("2026-03-29T12:00:00"));
    EXPECT_EQ(calendar.addingDays(at("2026-03-29T12:00:00"), -1), before);
}

TEST_F(BerlinCalendar, dayOfTheAutumnChangeHas25Hours) {
    const Date before = at("2026-10-24T12:00:00");
    EXPECT_EQ(calendar.addingDays(before, 1).since(before), 25 * hour);
    EXPECT_EQ(calendar.addingDays(at("2026-10-25T12:00:00"), -1), before);
}

TEST_F(BerlinCalendar, timeSkippedByTheChangeMovesOnByTheHourSkipped) {
    EXPECT_EQ(calendar.addingDays(at("2026-03-28T02:30:00"), 1), at("2026-03-29T03:30:00"));
    EXPECT_EQ(calendar.addingDays(at("2026-03-30T02:30:00"), -1), at("2026-03-29T03:30:00"));
    const Date evening = at("2026-03-28T23:30:00");
    EXPECT_EQ(calendar.addingDays(evening, 1).since(evening), 23 * hour);
}

TEST_F(BerlinCalendar, timeGivenTwiceStaysOnItsDay) {
    const Date twice = calendar.addingDays(at("2026-10-24T02:30:00"), 1);
    EXPECT_TRUE(twice == at("2026-10-25T01:30:00").addingSeconds(hour) ||
                twice == at("2026-10-25T01:30:00").addingSeconds(2 * hour));
    EXPECT_EQ(calendar.addingDays(twice, 1), at("2026-10-26T02:30:00"));
}

TEST_F(BerlinCalendar, noDaysLaterIsTheSameMomentAlsoInAnHourGivenTwice) {
    for (const double hours : {1, 2}) {
        const Date halfPastTwo = at("2026-10-25T01:30:00").addingSeconds(hours * hour);
        EXPECT_EQ(calendar.addingDays(halfPastTwo, 0), halfPastTwo);
    }
}

TEST_F(BerlinCalendar, leapDayIsCounted) {
    EXPECT_EQ(calendar.addingDays(at("2028-02-28T09:00:00"), 1), at("2028-02-29T09:00:00"));
    EXPECT_EQ(calendar.addingDays(at("2028-02-28T09:00:00"), 2), at("2028-03-01T09:00:00"));
    EXPECT_EQ(calendar.addingDays(at("2027-02-28T09:00:00"), 1), at("2027-03-01T09:00:00"));
}

TEST_F(BerlinCalendar, yearsEnd) {
    EXPECT_EQ(calendar.addingDays(at("2026-12-31T23:59:59"), 1), at("2027-01-01T23:59:59"));
    EXPECT_EQ(calendar.addingDays(at("2027-01-01T00:00:00"), -1), at("2026-12-31T00:00:00"));
    EXPECT_EQ(calendar.addingDays(at("2026-01-01T00:00:00"), 365), at("2027-01-01T00:00:00"));
}

TEST_F(BerlinCalendar, fractionsOfASecondAreKept) {
    const Date noon = at("2026-11-15T12:00:00").addingSeconds(0.625);
    EXPECT_EQ(calendar.addingDays(noon, 30).since(noon), 30 * 24 * hour);
}

TEST_F(BerlinCalendar, tellsWhatClocksShow) {
    const auto shown = [this](Date date) {
        return calendar.localTime(date).toString(QStringLiteral("yyyy-MM-dd HH:mm:ss")).toStdString();
    };
    EXPECT_EQ(shown(Date{816456008}), "2026-11-15 18:20:08");
    EXPECT_EQ(shown(Date{816456008.9996}), "2026-11-15 18:20:08");
    EXPECT_EQ(shown(at("2026-07-01T00:00:00").addingSeconds(-0.0001)), "2026-06-30 23:59:59");
    EXPECT_EQ(shown(Date{-978307200.5}), "1970-01-01 00:59:59");
    for (const double seconds : {1e300, -1e300, 1e15, std::numeric_limits<double>::quiet_NaN()})
        EXPECT_FALSE(calendar.localTime(Date{seconds}).isValid());
}

TEST_F(BerlinCalendar, momentOfIsWhenClocksShowThatTime) {
    EXPECT_EQ(calendar.momentOf(QDate(2026, 11, 15), QTime(18, 20, 8)), Date{816456008});
    EXPECT_EQ(calendar.momentOf(QDate(2026, 7, 1), QTime(0, 0)), at("2026-07-01T00:00:00"));
    const Date skipped = calendar.momentOf(QDate(2026, 3, 29), QTime(2, 30));
    EXPECT_EQ(skipped, at("2026-03-29T03:30:00")) << "later by as much as the clocks skip";
    const Date twice = calendar.momentOf(QDate(2026, 10, 25), QTime(2, 30));
    EXPECT_EQ(calendar.localTime(twice).time(), QTime(2, 30));
}

TEST_F(BerlinCalendar, aDayRunsFromMidnightToMidnight) {
    const Day day{at("2026-11-15T00:00:00"), at("2026-11-16T00:00:00")};
    for (const char* const time : {"2026-11-15T00:00:00", "2026-11-15T12:00:00", "2026-11-15T23:59:59"}) {
        EXPECT_EQ(calendar.dayOf(at(time)), day) << time;
        EXPECT_TRUE(day.contains(at(time))) << time;
    }
    EXPECT_EQ(calendar.dayOf(day.end.addingSeconds(-0.0001)), day);
    EXPECT_EQ(calendar.dayOf(day.end).start, day.end);
    EXPECT_FALSE(day.contains(day.end));
    EXPECT_FALSE(day.contains(day.start.addingSeconds(-0.0001)));
}

TEST_F(BerlinCalendar, daysOfTheClockChangesHave23And25Hours) {
    const Day spring = calendar.dayOf(at("2026-03-29T12:00:00"));
    EXPECT_EQ(spring.end.since(spring.start), 23 * hour);
    const Day autumn = calendar.dayOf(at("2026-10-25T12:00:00"));
    EXPECT_EQ(autumn.end.since(autumn.start), 25 * hour);
}

TEST(Calendar, whereMidnightIsSkippedTheDayBeginsWhenTheClocksGoOn) {
    const Calendar beirut(QTimeZone("Asia/Beirut"));
    const Day day = beirut.dayOf(momentIn("UTC", "2022-03-27T09:00:00"));
    EXPECT_EQ(day.end.since(day.start), 23 * hour);
    EXPECT_EQ(beirut.dayOf(day.start), day);
    EXPECT_EQ(beirut.dayOf(day.start.addingSeconds(-1)).end, day.start);
}

TEST_F(BerlinCalendar, monthsKeepTheDayOrEndOnTheLastOne) {
    EXPECT_EQ(calendar.addingMonths(at("2026-11-15T12:00:00"), 1), at("2026-12-15T12:00:00"));
    EXPECT_EQ(calendar.addingMonths(at("2026-03-31T12:00:00"), -1), at("2026-02-28T12:00:00"));
    EXPECT_EQ(calendar.addingMonths(at("2028-01-31T12:00:00"), 1), at("2028-02-29T12:00:00"));
    EXPECT_EQ(calendar.addingMonths(at("2026-01-10T12:00:00"), -1), at("2025-12-10T12:00:00"));
    EXPECT_EQ(calendar.addingMonths(at("2026-12-10T12:00:00"), 1), at("2027-01-10T12:00:00"));
}

TEST_F(BerlinCalendar, monthBeginsWithItsFirstMoment) {
    EXPECT_EQ(calendar.startOfMonth(at("2026-11-30T23:59:59")), at("2026-11-01T00:00:00"));
    EXPECT_EQ(calendar.startOfMonth(at("2026-11-01T00:00:00")), at("2026-11-01T00:00:00"));
    // Summer time ends in late October, so counting back a fixed number of seconds would miss the start.
    EXPECT_EQ(calendar.startOfMonth(at("2026-10-31T12:00:00")), at("2026-10-01T00:00:00"));
}

TEST(CalendarElsewhere, monthBeginsWhenTheClocksGoOnWhereTheySkipMidnight) {
    const Calendar calendar{QTimeZone("America/Asuncion")};
    const auto at = [](const char* isoTime) { return momentIn("America/Asuncion", isoTime); };
    EXPECT_EQ(calendar.startOfMonth(at("2017-10-15T15:00:00")), at("2017-10-01T01:00:00"));
}

TEST(CalendarElsewhere, dayBeginsWithItsFirstMidnightWhereTheClocksGoBackToIt) {
    const Calendar calendar{QTimeZone("America/Havana")};
    // On 3 November the clocks went back from 01:00 to 00:00.
    const Date firstMidnight = momentIn("UTC", "2024-11-03T04:00:00");
    const Day expected{firstMidnight, firstMidnight.addingSeconds(25 * hour)};
    EXPECT_EQ(calendar.dayOf(firstMidnight), expected);
    EXPECT_EQ(calendar.dayOf(firstMidnight.addingSeconds(hour)), expected);
    EXPECT_EQ(calendar.dayOf(firstMidnight.addingSeconds(24 * hour)), expected);
    EXPECT_EQ(calendar.dayOf(firstMidnight.addingSeconds(-hour)).end, expected.start);
    EXPECT_EQ(calendar.dayOfMonth(firstMidnight), 3);
}

} // namespace
} // namespace brisklog::test
