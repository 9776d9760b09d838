#include "foundation/GermanFormat.h"

#include "foundation/Calendar.h"

#include <clocale>
#include <gtest/gtest.h>
#include <limits>

namespace brisklog::test {
namespace {

using format::DateForm;

constexpr double infinity = std::numeric_limits<double>::infinity();
constexpr double notANumber = std::numeric_limits<double>::quiet_NaN();

/// Sunday, 15 November 2026, 18:20:08 in Berlin.
constexpr Date anEvening{816456008};

// This file writes the no-break space of amounts and durations as "·".
std::string visible(std::string text) {
    for (auto at = text.find("\u00A0"); at != text.npos; at = text.find("\u00A0"))
        text.replace(at, 2, "·");
    return text;
}

std::string money(double euros) { return visible(format::money(euros, "0,00 €")); }

std::string duration(TimeInterval seconds) { return visible(format::duration(seconds, "0h 0m")); }

std::string padded(TimeInterval seconds) { return visible(format::paddedDuration(seconds, "--")); }

std::string running(TimeInterval seconds) { return format::runningDuration(seconds, "00:00"); }

class GermanDates : public testing::Test {
protected:
    [[nodiscard]] std::string text(Date date, DateForm form) const {
        return format::date(date, form, calendar);
    }

    Calendar calendar{QTimeZone("Europe/Berlin")};
};

TEST_F(GermanDates, everyForm) {
    EXPECT_EQ(text(anEvening, DateForm::shortWithTime), "15.11.26, 18:20:08");
    EXPECT_EQ(text(anEvening, DateForm::shortDate), "15.11.26");
    EXPECT_EQ(text(anEvening, DateForm::mediumDate), "15.11.2026");
    EXPECT_EQ(text(anEvening, DateForm::longDate), "15. November 2026");
    EXPECT_EQ(text(anEvening, DateForm::fullDate), "Sonntag, 15. November 2026");
    EXPECT_EQ(text(anEvening, DateForm::shortTime), "18:20");
    EXPECT_EQ(text(anEvening, DateForm::weekday), "So.");
    EXPECT_EQ(text(anEvening, DateForm::month), "Nov.");
    EXPECT_EQ(text(anEvening, DateForm::isoDay), "2026-11-15");
}

TEST_F(GermanDates, singleDigitsArePaddedExceptInTheLongForm) {
    constexpr Date early{788832245};
    EXPECT_EQ(text(early, DateForm::shortWithTime), "31.12.25, 01:04:05");
    constexpr Date newYear{788918400};
    EXPECT_EQ(text(newYear, DateForm::shortWithTime), "01.01.26, 01:00:00");
    EXPECT_EQ(text(newYear, DateForm::longDate), "1. Januar 2026");
    EXPECT_EQ(text(newYear, DateForm::shortTime), "01:00");
    EXPECT_EQ(text(newYear, DateForm::isoDay), "2026-01-01");
}

TEST_F(GermanDates, lastMomentOfADayBelongsToIt) {
    constexpr Date midnight{816476400};
    EXPECT_EQ(text(midnight, DateForm::shortWithTime), "16.11.26, 00:00:00");
    EXPECT_EQ(text(midnight.addingSeconds(-0.001), DateForm::shortWithTime), "15.11.26, 23:59:59");
}

TEST_F(GermanDates, followTheClocksThroughTheChange) {
    // On 25 October 2026 the clocks go back from 3:00 to 2:00.
    constexpr Date beforeChange{814581000};
    EXPECT_EQ(text(beforeChange, DateForm::shortWithTime), "25.10.26, 02:30:00");
    EXPECT_EQ(text(beforeChange.addingSeconds(3600), DateForm::shortWithTime), "25.10.26, 02:30:00");
    EXPECT_EQ(text(beforeChange.addingSeconds(7200), DateForm::shortWithTime), "25.10.26, 03:30:00");
}

TEST_F(GermanDates, anotherZoneIsFollowed) {
    calendar = Calendar(QTimeZone("America/New_York"));
    EXPECT_EQ(text(anEvening, DateForm::shortWithTime), "15.11.26, 12:20:08");
}

TEST_F(GermanDates, absurdDatesGiveSomeTextAndNoHarm) {
    for (const double seconds : {1e300, -1e300, infinity, notANumber, 1e15, -1e15})
        for (const DateForm form : {DateForm::shortWithTime, DateForm::shortDate, DateForm::mediumDate,
                                    DateForm::longDate, DateForm::shortTime})
            EXPECT_LT(text(Date{seconds}, form).size(), 100U);
}

TEST(GermanMoney, decimalCommaGroupsAndEuroSign) {
    EXPECT_EQ(money(1234.5), "1.234,50·€");
    EXPECT_EQ(money(0), "0,00·€");
    EXPECT_EQ(money(85), "85,00·€");
    EXPECT_EQ(money(999.99), "999,99·€");
    EXPECT_EQ(money(1000), "1.000,00·€");
    EXPECT_EQ(money(1234567.89), "1.234.567,89·€");
    EXPECT_EQ(format::money(1, ""), "1,00\u00A0€");
}

TEST(GermanMoney, negativeAmountsHaveALeadingMinus) {
    EXPECT_EQ(money(-3), "-3,00·€");
    EXPECT_EQ(money(-1234.5), "-1.234,50·€");
}

TEST(GermanMoney, whatRoundsToZeroHasNoMinus) {
    EXPECT_EQ(money(-0.004), "0,00·€");
    EXPECT_EQ(money(-0.0), "0,00·€");
    EXPECT_EQ(money(-0.005), "0,00·€");
    EXPECT_EQ(money(-0.006), "-0,01·€");
}

TEST(GermanMoney, halvesGoToTheEvenCent) {
    // These amounts are exact in binary, so the ties are true ties.
    EXPECT_EQ(money(0.125), "0,12·€");
    EXPECT_EQ(money(0.375), "0,38·€");
    EXPECT_EQ(money(2.625), "2,62·€");
    EXPECT_EQ(money(-0.125), "-0,12·€");
}

TEST(GermanMoney, hugeAmountsAreWrittenOut) {
    EXPECT_EQ(money(1e15), "1.000.000.000.000.000,00·€");
    const std::string largest = money(std::numeric_limits<double>::max());
    EXPECT_TRUE(largest.starts_with("179.769.313.486.231.570.")) << largest;
    EXPECT_TRUE(largest.ends_with(".000,00·€")) << largest;
}

TEST(GermanMoney, amountsThatAreNoNumbersGiveTheFallback) {
    EXPECT_EQ(format::money(infinity, "0,00 €"), "0,00 €");
    EXPECT_EQ(format::money(-infinity, "--"), "--");
    EXPECT_EQ(format::money(notANumber, ""), "");
}

TEST(PlainMoney, decimalPointAndOrdinaryBlank) {
    EXPECT_EQ(format::plainMoney(1234.5, ""), "1234.50 €");
    EXPECT_EQ(format::plainMoney(0, ""), "0.00 €");
    EXPECT_EQ(format::plainMoney(-3, ""), "-3.00 €");
    EXPECT_EQ(format::plainMoney(-0.004, ""), "0.00 €");
    EXPECT_EQ(format::plainMoney(0.125, ""), "0.12 €");
    EXPECT_EQ(format::plainMoney(notANumber, "0.00 €"), "0.00 €");
    EXPECT_EQ(format::plainMoney(infinity, "--"), "--");
}

TEST(PlainMoney, largestNumberFits) {
    const std::string largest = format::plainMoney(-std::numeric_limits<double>::max(), "");
    EXPECT_EQ(largest.size(), 309 + 1 + 3 + std::string(" €").size());
}

TEST(PlainMoney, desktopsLocaleDoesNotMatter) {
    std::setlocale(LC_ALL, "de_DE.UTF-8");
    EXPECT_EQ(format::plainMoney(1234.5, ""), "1234.50 €");
}

TEST(Duration, zeroUnitsAreDropped) {
    EXPECT_EQ(duration(0), "0·min");
    EXPECT_EQ(duration(60), "1·min");
    EXPECT_EQ(duration(3600), "1·h");
    EXPECT_EQ(duration(5400), "1·h 30·min");
    EXPECT_EQ(duration(25 * 3600), "25·h");
    EXPECT_EQ(duration(100 * 3600), "100·h");
}

TEST(Duration, fractionsOfAMinuteAreCutOff) {
    EXPECT_EQ(duration(59.999), "0·min");
    EXPECT_EQ(duration(119), "1·min");
    EXPECT_EQ(duration(3599.9), "59·min");
    EXPECT_EQ(duration(7199), "1·h 59·min");
}

TEST(Duration, negativeOnesHaveALeadingMinusWhereAnyUnitIsLeft) {
    EXPECT_EQ(duration(-5400), "-1·h 30·min");
    EXPECT_EQ(duration(-60), "-1·min");
    EXPECT_EQ(duration(-59), "0·min");
    EXPECT_EQ(duration(-0.0), "0·min");
    EXPECT_EQ(padded(-3600), "-1·h 0·min");
    EXPECT_EQ(running(-1), "-00:00:01");
    EXPECT_EQ(running(-0.5), "00:00:00");
}

TEST(Duration, paddedFormAlwaysHasBothUnits) {
    EXPECT_EQ(padded(0), "0·h 0·min");
    EXPECT_EQ(padded(3600), "1·h 0·min");
    EXPECT_EQ(padded(5400), "1·h 30·min");
    EXPECT_EQ(padded(59), "0·h 0·min");
}

TEST(Duration, runningFormHasTwoDigitsEachAndMoreHoursBeyond) {
    EXPECT_EQ(running(0), "00:00:00");
    EXPECT_EQ(running(307), "00:05:07");
    EXPECT_EQ(running(307.9), "00:05:07");
    EXPECT_EQ(running(359999), "99:59:59");
    EXPECT_EQ(running(360000), "100:00:00");
}

TEST(Duration, whatIsNoFigureGivesThePlacesFallback) {
    for (const double seconds : {infinity, -infinity, notANumber, 1e300, -1e300}) {
        EXPECT_EQ(format::duration(seconds, "0h 0m"), "0h 0m");
        EXPECT_EQ(format::paddedDuration(seconds, "--"), "--");
        EXPECT_EQ(format::runningDuration(seconds, "00:00:00"), "00:00:00");
    }
}

TEST(Duration, withSecondsEveryUnitIsWritten) {
    const auto text = [](TimeInterval seconds) {
        return visible(format::paddedDurationWithSeconds(seconds, "--"));
    };
    EXPECT_EQ(text(0), visible("0\u00A0h 0\u00A0min 0\u00A0s"));
    EXPECT_EQ(text(59.9), visible("0\u00A0h 0\u00A0min 59\u00A0s"));
    EXPECT_EQ(text(5407), visible("1\u00A0h 30\u00A0min 7\u00A0s"));
    EXPECT_EQ(text(360000), visible("100\u00A0h 0\u00A0min 0\u00A0s"));
    EXPECT_EQ(text(-61), visible("-0\u00A0h 1\u00A0min 1\u00A0s"));
    EXPECT_EQ(text(1e300), "--");
}

TEST(Duration, tenThousandYearsAreStillWritten) {
    EXPECT_EQ(running(10000.0 * 365 * 86400), "87600000:00:00");
}

TEST_F(GermanDates, weekdaysAndMonthsAreAbbreviatedTheGermanWay) {
    std::vector<std::string> weekdays;
    std::vector<std::string> months;
    for (int i = 1; i <= 7; ++i)
        weekdays.push_back(text(calendar.addingDays(anEvening, i), DateForm::weekday));
    for (int i = 2; i <= 13; ++i)
        months.push_back(text(calendar.addingMonths(anEvening, i), DateForm::month));
    EXPECT_EQ(weekdays, (std::vector<std::string>{"Mo.", "Di.", "Mi.", "Do.", "Fr.", "Sa.", "So."}));
    EXPECT_EQ(months, (std::vector<std::string>{"Jan.", "Feb.", "März", "Apr.", "Mai", "Juni", "Juli", "Aug.",
                                                "Sept.", "Okt.", "Nov.", "Dez."}));
}

TEST(WholeMoney, hasNoCents) {
    EXPECT_EQ(visible(format::wholeMoney(9000, "0 €")), "9.000·€");
    EXPECT_EQ(visible(format::wholeMoney(0, "0 €")), "0·€");
    EXPECT_EQ(visible(format::wholeMoney(-0.2, "0 €")), "0·€");
    EXPECT_EQ(format::wholeMoney(infinity, "0 €"), "0 €");
}

} // namespace
} // namespace brisklog::test
