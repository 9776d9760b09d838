#include "platform/loop/SystemClock.h"

#include "foundation/Calendar.h"

#include <gtest/gtest.h>

namespace brisklog::test {
namespace {

/// 15 November 2026, 17:20:08 UTC.
constexpr Date anEvening{816456008};

std::string shownBy(const SystemClock& clock, Date date) {
    return clock.calendar().localTime(date).toString(QStringLiteral("d. HH:mm")).toStdString();
}

TEST(SystemClock, followsTheTimeZoneWhileTheProgramRuns) {
    const SystemClock clock;
    qputenv("TZ", "Europe/Berlin");
    const Calendar atHome = clock.calendar();
    EXPECT_EQ(shownBy(clock, anEvening), "15. 18:20");
    qputenv("TZ", "Asia/Tokyo");
    EXPECT_EQ(shownBy(clock, anEvening), "16. 02:20");
    EXPECT_NE(clock.calendar(), atHome);
    qputenv("TZ", "Europe/Berlin");
    EXPECT_EQ(clock.calendar(), atHome);
}

TEST(SystemClock, followsAZoneThatIsGivenByItsRulesOrAsAFile) {
    const SystemClock clock;
    qputenv("TZ", "CET-1CEST,M3.5.0,M10.5.0/3");
    EXPECT_EQ(shownBy(clock, anEvening), "15. 18:20");
    EXPECT_EQ(shownBy(clock, anEvening.addingSeconds(-150 * 86400.0)), "18. 19:20");
    qputenv("TZ", ":/usr/share/zoneinfo/Asia/Tokyo");
    EXPECT_EQ(shownBy(clock, anEvening), "16. 02:20");
}

TEST(SystemClock, tellsWithWhichDayTheUsersWeekBegins) {
    // The locale is read once per process.
    qputenv("LC_ALL", "en_US.UTF-8");
    EXPECT_EQ(SystemClock().calendar().firstWeekday(), Qt::Sunday);
}

} // namespace
} // namespace brisklog::test
