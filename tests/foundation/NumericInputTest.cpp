#include "foundation/NumericInput.h"

#include <clocale>
#include <gtest/gtest.h>
#include <string>

namespace brisklog::test {
namespace {

TEST(NumericInput, decimalCommaAndPointAreRead) {
    EXPECT_EQ(parseDecimal("85,50"), 85.5);
    EXPECT_EQ(parseDecimal("85.50"), 85.5);
    EXPECT_EQ(parseDecimal("85"), 85);
    EXPECT_EQ(parseDecimal("85,"), 85);
    EXPECT_EQ(parseDecimal(",5"), 0.5);
    EXPECT_EQ(parseDecimal("0"), 0);
}

TEST(NumericInput, oneSignIsAllowed) {
    EXPECT_EQ(parseDecimal("-5"), -5);
    EXPECT_EQ(parseDecimal("+5,5"), 5.5);
    EXPECT_EQ(parseDecimal("+-5"), std::nullopt);
    EXPECT_EQ(parseDecimal("-+5"), std::nullopt);
    EXPECT_EQ(parseDecimal("++5"), std::nullopt);
    EXPECT_EQ(parseDecimal("--5"), std::nullopt);
    EXPECT_EQ(parseDecimal("+"), std::nullopt);
    EXPECT_EQ(parseDecimal("-"), std::nullopt);
    EXPECT_EQ(parseDecimal("5-"), std::nullopt);
}

TEST(NumericInput, exponentIsRead) {
    EXPECT_EQ(parseDecimal("1e3"), 1000);
    EXPECT_EQ(parseDecimal("1E-3"), 0.001);
    EXPECT_EQ(parseDecimal("1e"), std::nullopt);
}

TEST(NumericInput, wholeTextMustBeTheNumber) {
    EXPECT_EQ(parseDecimal(""), std::nullopt);
    EXPECT_EQ(parseDecimal("1.234,50"), std::nullopt);
    EXPECT_EQ(parseDecimal("1,234,5"), std::nullopt);
    EXPECT_EQ(parseDecimal("abc"), std::nullopt);
    EXPECT_EQ(parseDecimal(" 85"), std::nullopt);
    EXPECT_EQ(parseDecimal("85 "), std::nullopt);
    EXPECT_EQ(parseDecimal("85 €"), std::nullopt);
    EXPECT_EQ(parseDecimal("0x10"), std::nullopt);
    EXPECT_EQ(parseDecimal(","), std::nullopt);
    EXPECT_EQ(parseDecimal("٣"), std::nullopt);
    EXPECT_EQ(parseDecimal(std::string_view("5\0", 2)), std::nullopt);
}

TEST(NumericInput, onlyFiniteNumbersCount) {
    for (const char* const text :
         {"nan", "NaN", "-nan", "inf", "-inf", "+inf", "infinity", "1e999", "-1e999"})
        EXPECT_EQ(parseDecimal(text), std::nullopt) << text;
}

TEST(NumericInput, desktopsLocaleDoesNotMatter) {
    // Has no effect where this locale is not installed; the test then passes trivially.
    std::setlocale(LC_ALL, "de_DE.UTF-8");
    EXPECT_EQ(parseDecimal("85,50"), 85.5);
    EXPECT_EQ(parseDecimal("85.50"), 85.5);
}

TEST(NumericInput, aDurationWithAColonIsHoursAndMinutes) {
    EXPECT_EQ(parseDuration("1:30"), 90);
    EXPECT_EQ(parseDuration("07:05"), 425);
    EXPECT_EQ(parseDuration("23:59"), 1439);
    EXPECT_EQ(parseDuration(":45"), 45);
    EXPECT_EQ(parseDuration("2:"), 120);
}

TEST(NumericInput, aDurationWithACommaIsHoursToTheNearestMinute) {
    EXPECT_EQ(parseDuration("1,5"), 90);
    EXPECT_EQ(parseDuration(",25"), 15);
    EXPECT_EQ(parseDuration("4,35"), 261);
    EXPECT_EQ(parseDuration("0,999"), 60);
}

TEST(NumericInput, otherTextsAreNoDuration) {
    for (const std::string_view text :
         {"", ":", ",", "1:60", "24", "-1:30", "1:-5", "-1,5", "1.30", "1.5", "1:2:3", "1,5:30", "1e1,",
          " 1:30", "1:3 ", "99999:00", "99999999999:00", "1e9,"})
        EXPECT_EQ(parseDuration(text), std::nullopt) << text;
}

} // namespace
} // namespace brisklog::test
