#include "text/Numbers.h"

#include <cmath>
#include <cstdint>
#include <cstring>
#include <gtest/gtest.h>
#include <limits>
#include <random>

namespace strativo {
namespace {

TEST(AsDecimal, IsTheDoubleOfTheShortestDecimal) {
    EXPECT_EQ(AsDecimal(0.84F), 0.84);
    EXPECT_EQ(AsDecimal(0.1F), 0.1);
    EXPECT_EQ(AsDecimal(-999.001F), -999.001);
    EXPECT_EQ(AsDecimal(16777216.0F), 16777216.0);
    EXPECT_EQ(AsDecimal(3.4028235e38F), 3.4028235e38);
    EXPECT_TRUE(std::signbit(AsDecimal(-0.0F)));
}

TEST(AsDecimal, IsTheShortestDecimalOfALargeFloatToo) {
    EXPECT_EQ(AsDecimal(123456789.0F), 123456790.0);
    EXPECT_EQ(AsDecimal(-87654321.0F), -87654320.0);
    EXPECT_EQ(AsDecimal(1e20F), 1e20);
}

TEST(AsDecimal, ReadsBackToTheSameFloat) {
    std::mt19937 random(1);
    for (int i = 0; i < 100000; ++i) {
        const auto bits = static_cast<std::uint32_t>(random());
        float value = 0;
        std::memcpy(&value, &bits, sizeof value);
        if (std::isfinite(value)) {
            ASSERT_EQ(static_cast<float>(AsDecimal(value)), value);
        }
    }
}

} // namespace
} // namespace strativo
