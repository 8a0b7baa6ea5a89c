#include "model/GlassType.h"

#include <algorithm>
#include <gtest/gtest.h>

namespace strativo {
namespace {

TEST(GlassType, HasElevenValuesOfZeroPerTable) {
    const GlassType type;
    EXPECT_EQ(type.transmission.end() - type.transmission.begin(), 11);
    EXPECT_EQ(std::count(type.absorption.begin(), type.absorption.end(), 0.0F), 11);
    EXPECT_FALSE(type.hasDiffusion);
}

TEST(GlassType, OfTwoDimensionsHasNineteenRowsOfNineteen) {
    const GlassType2D type;
    EXPECT_EQ(type.diffusion.end() - type.diffusion.begin(), 19);
    EXPECT_EQ(type.diffusion[19].end() - type.diffusion[19].begin(), 19);
}

TEST(IncidenceAngle, RisesByTenDegreesFromValueTwo) {
    EXPECT_EQ(IncidenceAngle(2), 0);
    EXPECT_EQ(IncidenceAngle(5), 30);
    EXPECT_EQ(IncidenceAngle(11), 90);
}

} // namespace
} // namespace strativo
