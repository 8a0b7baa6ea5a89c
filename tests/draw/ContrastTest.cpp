#include "draw/Contrast.h"

#include <gtest/gtest.h>

namespace strativo {
namespace {

TEST(Contrast, OfBlackAndWhiteIsTwentyOne) {
    EXPECT_DOUBLE_EQ(ContrastRatio(0x000000, 0xFFFFFF), 21);
    EXPECT_DOUBLE_EQ(ContrastRatio(0xFFFFFF, 0x000000), 21);
    EXPECT_DOUBLE_EQ(ContrastRatio(0x336699, 0x336699), 1);
}

TEST(Contrast, OfPublishedPairs) {
    EXPECT_NEAR(ContrastRatio(0x767676, 0xFFFFFF), 4.54, 0.005);
    EXPECT_NEAR(ContrastRatio(0x777777, 0xFFFFFF), 4.48, 0.005);
    EXPECT_NEAR(ContrastRatio(0x0000FF, 0xFFFFFF), 8.59, 0.005);
}

TEST(Contrast, AColourThatHasItStaysAsItIs) {
    EXPECT_EQ(WithContrast(0x003366, 0xFFFFFF, readableContrast), 0x003366);
}

TEST(Contrast, AColourIsChangedNoMoreThanItNeeds) {
    const DrawnColour darkened = WithContrast(0x308CC6, 0xFFFFFF, readableContrast);
    EXPECT_GE(ContrastRatio(darkened, 0xFFFFFF), readableContrast);
    EXPECT_LT(ContrastRatio(darkened, 0xFFFFFF), readableContrast + 0.2);
}

TEST(Contrast, ALightColourOnADarkOneIsMadeLighter) {
    const DrawnColour lightened = WithContrast(0x606060, 0x202020, readableContrast);
    EXPECT_GT(lightened, 0x606060);
    EXPECT_GE(ContrastRatio(lightened, 0x202020), readableContrast);
}

TEST(Contrast, AMiddleColourTurnsToTheSideThatHasRoom) {
    // White on this grey would never be enough, so the lighter text turns dark.
    EXPECT_GE(ContrastRatio(WithContrast(0xA0A0A0, 0x909090, readableContrast), 0x909090),
              readableContrast);
}

TEST(Contrast, BlackOrWhiteWhereNothingIsEnough) {
    EXPECT_EQ(WithContrast(0x808080, 0x777777, 15), 0x000000);
    EXPECT_EQ(WithContrast(0x808080, 0x333333, 20), 0xFFFFFF);
}

} // namespace
} // namespace strativo
