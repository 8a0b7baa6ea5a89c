#include "draw/TemperatureAxis.h"

#include <cmath>
#include <gtest/gtest.h>

namespace strativo {
namespace {

struct AxisCase {
    double inside, outside, lowest, step;
    int steps;
};

class TemperatureAxes : public testing::TestWithParam<AxisCase> {};

TEST_P(TemperatureAxes, HaveRoundStepsAndHoldBothAirs) {
    const TemperatureAxis axis = TemperatureAxisFor({GetParam().inside, GetParam().outside});
    EXPECT_NEAR(axis.lowest, GetParam().lowest, 1e-12);
    EXPECT_NEAR(axis.step, GetParam().step, 1e-12);
    EXPECT_EQ(axis.steps, GetParam().steps);
}

INSTANTIATE_TEST_SUITE_P(All, TemperatureAxes,
                         testing::Values(AxisCase{20, 0, 0, 5, 4}, AxisCase{20, -5, -5, 5, 5},
                                         AxisCase{0, 20, 0, 5, 4}, AxisCase{21, -12, -20, 10, 5},
                                         AxisCase{20, 17, 17, 1, 3}, AxisCase{20, 20, 20, 0.2, 1},
                                         AxisCase{1000, 0, 0, 200, 5}));

TEST(TemperatureAxes, HaveMarksAtTheirSteps) {
    const TemperatureAxis axis = TemperatureAxisFor({20.6, 20});
    for (const int number : {0, 1, 2, 3})
        EXPECT_EQ(axis.Mark(number), std::round((20 + 0.2 * number) * 10) / 10);
}

TEST(TemperatureAxes, OfAnyTemperaturesHaveFewSteps) {
    for (const double inside : {lowestTemperature, -3.3, 0.0, 1e-9, 22.2, highestTemperature})
        for (const double outside : {lowestTemperature, -17.0, 0.05, 22.2, highestTemperature}) {
            const TemperatureAxis axis = TemperatureAxisFor({inside, outside});
            EXPECT_GE(axis.steps, 1);
            EXPECT_LE(axis.steps, 7);
            EXPECT_LE(axis.lowest, std::min(inside, outside) + 1e-9);
            EXPECT_GE(axis.Highest(), std::max(inside, outside) - 1e-6);
        }
}

TEST(TemperatureText, HasOneDecimalAndNoMinusBeforeZero) {
    EXPECT_EQ(TemperatureText(19.25), "19.3");
    EXPECT_EQ(TemperatureText(-0.04), "0.0");
    EXPECT_EQ(TemperatureText(-0.06), "-0.1");
}

} // namespace
} // namespace strativo
