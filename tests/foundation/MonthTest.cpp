#include "foundation/Calendar.h"
#include "foundation/GermanFormat.h"

#include <gtest/gtest.h>

namespace brisklog::test {
namespace {

const QTimeZone berlin("Europe/Berlin");

/// 31 December 2023, 23:30:00 UTC: already 2024 in Berlin.
constexpr Date newYearsEve{725758200};

TEST(Month, isThatOfTheZone) {
    EXPECT_EQ(Calendar(QTimeZone::utc()).monthOf(newYearsEve), (YearAndMonth{2023, 12}));
    EXPECT_EQ(Calendar(berlin).monthOf(newYearsEve), (YearAndMonth{2024, 1}));
}

TEST(Month, endsWithTheLastInstantBeforeTheNext) {
    const Calendar calendar(QTimeZone::utc());
    const Date newYear = newYearsEve.addingSeconds(1800);
    EXPECT_EQ(calendar.monthOf(newYear.addingSeconds(-0.0001)), (YearAndMonth{2023, 12}));
    EXPECT_EQ(calendar.monthOf(newYear), (YearAndMonth{2024, 1}));
}

TEST(Month, ofAMomentThatNoCalendarReachesIsZero) {
    for (const double seconds : {1e300, -1e300, 1e15})
        EXPECT_EQ(Calendar(berlin).monthOf(Date{seconds}), YearAndMonth{});
}

TEST(Month, isWrittenOutInGermanWithItsYear) {
    const Calendar calendar(QTimeZone::utc());
    EXPECT_EQ(format::date(newYearsEve, format::DateForm::monthAndYear, calendar), "Dezember 2023");
    EXPECT_EQ(format::date(newYearsEve.addingSeconds(90 * 86400), format::DateForm::monthAndYear, calendar),
              "März 2024");
}

} // namespace
} // namespace brisklog::test
