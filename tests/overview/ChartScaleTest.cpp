#include "overview/ChartScale.h"

#include <cmath>
#include <gtest/gtest.h>
#include <limits>

namespace brisklog::test {
namespace {

constexpr double infinity = std::numeric_limits<double>::infinity();

TEST(ChartScale, nothingWorkedIsOneStep) {
    EXPECT_EQ(hoursScale({0, 0, 0}), (ChartScale{1, 1}));
    EXPECT_EQ(moneyScale({}), (ChartScale{1, 1}));
    EXPECT_EQ(moneyScale({-5}), (ChartScale{1, 1}));
}

TEST(ChartScale, anOrdinaryWeek) {
    EXPECT_EQ(hoursScale({0, 1.2, 7.5, 8.6, 6.75, 9.2, 4.8}), (ChartScale{2, 5}));
    EXPECT_EQ(hoursScale({8}), (ChartScale{2, 4}));
}

TEST(ChartScale, littleWorkIsCountedInQuartersOfAnHour) {
    EXPECT_EQ(hoursScale({0.1}), (ChartScale{0.25, 4}));
    EXPECT_EQ(hoursScale({1}), (ChartScale{0.25, 4}));
    EXPECT_EQ(hoursScale({1.01}), (ChartScale{0.5, 4}));
    EXPECT_EQ(hoursScale({2.5}), (ChartScale{1, 4}));
}

TEST(ChartScale, moneyFromCentsToMillions) {
    EXPECT_EQ(moneyScale({8200}), (ChartScale{2000, 5}));
    EXPECT_EQ(moneyScale({0.004}), (ChartScale{0.01, 4}));
    EXPECT_EQ(moneyScale({9999999}), (ChartScale{2e6, 5}));
}

TEST(ChartScale, everySizeHasFourToSixStepsAndRoomForIt) {
    for (int power = 0; power < 570; ++power) {
        const double most = 0.02 * std::pow(1.07, power);
        const ChartScale scale = moneyScale({most, most / 2});
        EXPECT_GE(scale.stepCount, 4) << most;
        EXPECT_LE(scale.stepCount, 6) << most;
        EXPECT_GE(scale.top(), most * (1 - 1e-12));
        const double figure = scale.step / std::pow(10, std::floor(std::log10(scale.step) + 1e-9));
        EXPECT_TRUE(std::abs(figure - 1) < 1e-9 || std::abs(figure - 2) < 1e-9 || std::abs(figure - 5) < 1e-9)
            << scale.step;
    }
}

TEST(ChartScale, whatIsNoNumberMovesNothingAndFillsItsBar) {
    EXPECT_EQ(moneyScale({8200, infinity, std::nan("")}), (ChartScale{2000, 5}));
    const ChartScale scale{2, 5};
    EXPECT_EQ(scale.share(infinity), 1);
    EXPECT_EQ(scale.share(std::nan("")), 1);
    EXPECT_EQ(scale.share(-infinity), 0);
}

TEST(ChartScale, shareIsThePartOfTheAxis) {
    const ChartScale scale{2, 5};
    EXPECT_EQ(scale.share(5), 0.5);
    EXPECT_EQ(scale.share(-1), 0);
    EXPECT_EQ(scale.share(11), 1);
    EXPECT_EQ(scale.lines(), (std::vector<double>{0, 2, 4, 6, 8, 10}));
}

} // namespace
} // namespace brisklog::test
