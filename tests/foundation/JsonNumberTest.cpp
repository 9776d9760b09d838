#include "JsonRecords.h"

#include <bit>
#include <cmath>
#include <gtest/gtest.h>
#include <limits>
#include <random>

namespace brisklog::test {
namespace {

using namespace std::string_literals;
using Numbers = std::vector<double>;

double read(const std::string& text) {
    auto decoded = json::decode<Numbers>("[" + text + "]");
    EXPECT_TRUE(decoded.succeeded()) << text.substr(0, 100) << " " << decoded.error().description;
    return decoded.succeeded() ? decoded.value()[0] : std::nan("");
}

std::uint64_t bits(double number) { return std::bit_cast<std::uint64_t>(number); }

TEST(JsonNumbers, formsOfOneNumber) {
    for (const char* const one :
         {"1", "1.0", "1e0", "1E0", "10e-1", "0.1e1", "0.1E+1", "1.000000000000000000000000"})
        EXPECT_EQ(read(one), 1) << one;
    EXPECT_EQ(bits(read("-0")), bits(-0.0));
    EXPECT_EQ(bits(read("-0.0")), bits(-0.0));
    EXPECT_EQ(bits(read("0")), bits(0.0));
}

TEST(JsonNumbers, wholeNumbersOfAnyLengthAreNearestDoubles) {
    EXPECT_EQ(read("2147483647"), 2147483647.0);
    EXPECT_EQ(read("2147483648"), 2147483648.0);
    EXPECT_EQ(read("-2147483649"), -2147483649.0);
    EXPECT_EQ(read("4294967296"), 4294967296.0);
    EXPECT_EQ(read("9007199254740993"), 9007199254740992.0) << "ties round to even";
    EXPECT_EQ(read("9223372036854775807"), 9223372036854775808.0);
    EXPECT_EQ(read("-9223372036854775808"), -9223372036854775808.0);
    EXPECT_EQ(read("18446744073709551615"), 18446744073709551616.0);
    EXPECT_EQ(read("100000000000000000000"), 1e20);
    EXPECT_EQ(read("1" + std::string(300, '0')), 1e300);
}

TEST(JsonNumbers, hardCasesOfReading) {
    EXPECT_EQ(bits(read("2.2250738585072011e-308")), 0x000FFFFFFFFFFFFFU);
    EXPECT_EQ(bits(read("2.2250738585072012e-308")), 0x0010000000000000U);
    EXPECT_EQ(bits(read("5e-324")), 1U);
    EXPECT_EQ(bits(read("1e23")), bits(1e23));
    EXPECT_EQ(bits(read("8.533e+68")), bits(8.533e+68));
    EXPECT_EQ(bits(read("1.7976931348623157e308")), bits(std::numeric_limits<double>::max()));
    EXPECT_EQ(read("9007199254740992." + std::string(5000, '0') + "1"), 9007199254740992.0);
    EXPECT_EQ(read("9007199254740993." + std::string(5000, '0') + "1"), 9007199254740994.0);
}

TEST(JsonNumbers, longRowsOfZerosAreJustZeros) {
    const std::string zeros(1000, '0');
    EXPECT_EQ(read("0." + zeros + "1e1001"), 1);
    EXPECT_EQ(read("0." + zeros), 0);
    EXPECT_EQ(read("0e5"), 0);
    EXPECT_EQ(read("0.0e300"), 0);
    EXPECT_EQ(read("0e-2147483640"), 0);
    EXPECT_EQ(read("1." + zeros + "e10"), 1e10);
}

TEST(JsonNumbers, numbersOutOfRangeAreRefused) {
    for (const std::string& text :
         {"1e309"s, "-1e309"s, "1e400"s, "1.8e308"s, "10e308"s, "1e99999999999999999999"s,
          std::string(400, '9'), "17976931348623159" + std::string(292, '0'), "1e-400"s,
          "0." + std::string(1000, '0') + "1", "0.00000000001e-2147483639"s, "1e-99999999999999999999"s})
        EXPECT_TRUE(json::decode<Numbers>("[" + text + "]").failed()) << text;
}

TEST(JsonNumbers, numberOutOfRangeIsNamedWithItsPlace) {
    const auto decoded = json::decode<std::vector<Knot>>(R"([{"width":1},{"width":1.8e308}])");
    ASSERT_TRUE(decoded.failed());
    EXPECT_EQ(decoded.error().description, "[1].width: number is out of range (byte 29)");
}

void expectRoundTrip(const Numbers& numbers) {
    for (const auto layout : {json::Layout::pretty, json::Layout::compact}) {
        const auto encoded = json::encode(numbers, layout);
        ASSERT_TRUE(encoded.succeeded());
        const auto decoded = json::decode<Numbers>(encoded.value().bytes());
        ASSERT_TRUE(decoded.succeeded()) << decoded.error().description;
        ASSERT_EQ(decoded.value().size(), numbers.size());
        for (std::size_t i = 0; i < numbers.size(); ++i)
            ASSERT_EQ(bits(decoded.value()[i]), bits(numbers[i])) << numbers[i];
    }
}

TEST(JsonNumbers, everyFiniteDoubleComesBackBitForBit) {
    std::mt19937_64 random(20261115);
    Numbers numbers;
    while (numbers.size() < 200000)
        if (const auto number = std::bit_cast<double>(random()); std::isfinite(number))
            numbers.push_back(number);
    expectRoundTrip(numbers);
}

TEST(JsonNumbers, pointsInTimeComeBackBitForBit) {
    std::mt19937_64 random(20261115);
    std::uniform_real_distribution<double> time(0, 2e9);
    Numbers numbers;
    for (int i = 0; i < 200000; ++i)
        numbers.push_back(time(random));
    expectRoundTrip(numbers);
}

TEST(JsonNumbers, edgesOfTheRangeComeBackBitForBit) {
    Numbers numbers{0.0, -0.0, 1e21, 1e-7, 123456789012345680000.0, 9007199254740993.0};
    for (int exponent = -1074; exponent < 1024; ++exponent) {
        const double power = std::ldexp(1, exponent);
        numbers.insert(numbers.end(),
                       {power, std::nextafter(power, 0), std::nextafter(power, INFINITY), -power});
    }
    std::erase_if(numbers, [](double number) { return !std::isfinite(number); });
    numbers.push_back(std::numeric_limits<double>::max());
    expectRoundTrip(numbers);
}

TEST(JsonNumbers, whatIsNotFiniteIsNotEncoded) {
    for (const double number : {std::nan(""), HUGE_VAL, -HUGE_VAL}) {
        const auto encoded = json::encode(Numbers{1, number}, json::Layout::compact);
        ASSERT_TRUE(encoded.failed());
        EXPECT_EQ(encoded.error().description, "[1]: number is not finite");
    }
}

} // namespace
} // namespace brisklog::test
