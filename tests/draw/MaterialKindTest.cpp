#include "draw/MaterialKind.h"

#include <gtest/gtest.h>

namespace strativo {
namespace {

struct KindCase {
    const char* name;
    float conductivity;
    MaterialKind kind;
};

class Kinds : public testing::TestWithParam<KindCase> {};

TEST_P(Kinds, FollowNameAndConductivity) {
    Layer layer;
    layer.name = GetParam().name;
    layer.conductivity = GetParam().conductivity;
    EXPECT_EQ(KindOf(layer), GetParam().kind) << KindName(KindOf(layer));
}

INSTANTIATE_TEST_SUITE_P(
    All, Kinds,
    testing::Values(KindCase{"CAVITY Type 1 NORMAL", -1, MaterialKind::cavity},
                    KindCase{"GLASS WOOL 60", 0.035F, MaterialKind::insulation},
                    KindCase{"GLASS SODA LIME 2500", 1, MaterialKind::glass},
                    KindCase{"BRICK CLAY 1760", 0.78F, MaterialKind::masonry},
                    KindCase{"CONCRETE BLOCK LIGHT 1380", 0.33F, MaterialKind::concrete},
                    KindCase{"GYPSUM BOARD 900", 0.25F, MaterialKind::plaster},
                    KindCase{"OSB 620", 0.13F, MaterialKind::wood},
                    KindCase{"UNKNOWN SHEET", 50, MaterialKind::metal},
                    KindCase{"UNKNOWN ALLOY", 12.5F, MaterialKind::metal},
                    KindCase{"UNKNOWN STONE", 11.5F, MaterialKind::masonry},
                    KindCase{"UNKNOWN SHEET", 11.5F, MaterialKind::other},
                    KindCase{"CARPET", 0.06F, MaterialKind::insulation},
                    KindCase{"SOIL", 1.5F, MaterialKind::other}));

} // namespace
} // namespace strativo
