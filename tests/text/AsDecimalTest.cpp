#include "text/Numbers.h"

#include <charconv>
#include <cmath>
#include <cstdint>
#include <cstring>
#include <gtest/gtest.h>
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

double ByDigits(float value) {
    char text[32];
    const auto end = std::to_chars(text, text + sizeof text, value, std::chars_format::scientific);
    double decimal = 0;
    std::from_chars(text, end.ptr, decimal);
    return decimal;
}

TEST(AsDecimal, IsThatOfTheDigitsForFewAndForManyOfThem) {
    for (const double unit : {1e-6, 1e-3, 0.01, 1.0, 7.0, 1000.0})
        for (int count = 0; count < 30000; ++count) {
            const auto value = static_cast<float>(count * unit);
            for (const float near : {value, std::nextafter(value, 1e30F), -value}) {
                ASSERT_EQ(AsDecimal(near), ByDigits(near)) << count << " * " << unit;
            }
        }
    std::mt19937 random(2);
    std::uniform_real_distribution<float> exponents(-4, 7);
    for (int i = 0; i < 300000; ++i) {
        const float value = std::pow(10.0F, exponents(random));
        ASSERT_EQ(AsDecimal(value), ByDigits(value)) << value;
    }
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
