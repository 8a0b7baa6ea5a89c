#include "calc/TestLayers.h"
#include "draw/GlassCurves.h"
#include "draw/Section.h"
#include "draw/Svg.h"
#include "support/Samples.h"

#include <algorithm>
#include <cstdlib>
#include <fstream>
#include <functional>
#include <gtest/gtest.h>

namespace strativo {
namespace {

const std::string drawings = "tests/golden/drawings/";

Construction Wall() {
    return MakeConstruction({MakeLayer("RENDER", 0.8F, 20), MakeLayer("BRICK", 0.5F, 100),
                             MakeLayer("WOOL & FELT", 0.035F, 120), MakeLayer("CAVITY", -3, 0.18),
                             MakeLayer("FOIL", 0.2F, 0.2), MakeLayer("PLASTER", 0.5F, 12.5)});
}

/// Many thin layers between thick ones.
Construction ThinLayers() {
    std::vector<Layer> layers(maxLayers, MakeLayer("FELT", 0.04F, 2));
    layers.front() = MakeLayer("CONCRETE", 1.4F, 300);
    layers.back() = MakeLayer("TIMBER", 0.13F, 60);
    return MakeConstruction(layers);
}

GlassType Glass(bool hasDiffusion) {
    GlassType type;
    type.hasDiffusion = hasDiffusion;
    for (int number = 1; number <= AngularValues::last; ++number) {
        const float fall = 1 - static_cast<float>(number) / 12;
        type.transmission[number] = 0.8F * fall;
        type.absorption[number] = 0.1F + 0.02F * static_cast<float>(number % 4);
        type.diffusion[number] = 0.05F;
    }
    return type;
}

Drawing SectionAt(const Construction& construction, AirTemperatures air, HeatFlow flow) {
    ThermalConditions conditions;
    conditions.air = air;
    return DrawSection(construction, conditions, flow);
}

Construction Transparent() {
    Construction construction = Wall();
    construction.type = transparentType;
    return construction;
}

struct NamedDrawing {
    std::string name;
    std::function<Drawing()> draw;
};

/// Every figure of a drawing has its place: one that moves shows as a difference to look at. With
/// WRITE_DRAWINGS in the environment the files are written anew.
class DrawingFile : public testing::TestWithParam<NamedDrawing> {};

TEST_P(DrawingFile, IsDrawnAsItWas) {
    const std::string file = drawings + GetParam().name + ".svg";
    const std::string drawn = SvgFile(GetParam().draw());
    if (std::getenv("WRITE_DRAWINGS") != nullptr) {
        std::ofstream(std::string(STRATIVO_SOURCE) + "/" + file) << drawn;
        FAIL() << file << " was written; look at it";
    }
    EXPECT_EQ(drawn, SourceFile(file));
}

const std::vector<NamedDrawing> all = {
    {"wall-in-winter",
     [] {
         return SectionAt(Wall(), {20, -10}, HeatFlow::horizontal);
     }},
    {"wall-in-summer",
     [] {
         return SectionAt(Wall(), {24, 32.5}, HeatFlow::downward);
     }},
    {"thin-layers",
     [] {
         return SectionAt(ThinLayers(), {20, 0}, HeatFlow::upward);
     }},
    {"transparent",
     [] {
         return SectionAt(Transparent(), {20, 0}, HeatFlow::horizontal);
     }},
    {"no-layers",
     [] {
         return SectionAt(Construction(), {20, 0}, HeatFlow::horizontal);
     }},
    {"glass", [] { return DrawGlassCurves(Glass(false)); }},
    {"diffusing-glass", [] { return DrawGlassCurves(Glass(true)); }},
};

INSTANTIATE_TEST_SUITE_P(All, DrawingFile, testing::ValuesIn(all), [](const auto& drawing) {
    std::string name = drawing.param.name;
    std::replace(name.begin(), name.end(), '-', '_');
    return name;
});

} // namespace
} // namespace strativo
