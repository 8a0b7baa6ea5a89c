#include "draw/Section.h"

#include "calc/TestLayers.h"
#include "draw/MaterialKind.h"

#include <gmock/gmock.h>

namespace strativo {
namespace {

using testing::Contains;
using testing::ElementsAre;
using testing::Not;

template <class Shape>
std::vector<Shape> All(const Drawing& drawing) {
    std::vector<Shape> found;
    for (const DrawnShape& shape : drawing.shapes)
        if (const auto* match = std::get_if<Shape>(&shape))
            found.push_back(*match);
    return found;
}

std::vector<std::string> Texts(const Drawing& drawing) {
    std::vector<std::string> texts;
    for (const DrawnText& text : All<DrawnText>(drawing))
        texts.push_back(text.utf8);
    return texts;
}

/// The filled rectangles: the layers from left to right.
std::vector<DrawnRectangle> Layers(const Drawing& drawing) {
    std::vector<DrawnRectangle> layers;
    for (const DrawnRectangle& rectangle : All<DrawnRectangle>(drawing))
        if (rectangle.fill)
            layers.push_back(rectangle);
    return layers;
}

/// The line drawn last: the temperature.
DrawnLine Profile(const Drawing& drawing) {
    return All<DrawnLine>(drawing).back();
}

const Construction wall =
    MakeConstruction({MakeLayer("BRICK", 0.5F, 100), MakeLayer("WOOL", 0.05F, 50),
                      MakeLayer("CAVITY", -3, 0.2), MakeLayer("PLASTER", 0.5F, 10)});

TEST(Section, DrawsLayersToScaleFromOutsideToInside) {
    const auto layers = Layers(DrawSection(wall, {}, HeatFlow::horizontal));
    ASSERT_EQ(layers.size(), 4U);
    EXPECT_DOUBLE_EQ(layers[0].width / layers[1].width, 2);
    EXPECT_DOUBLE_EQ(layers[0].width / layers[2].width, 4); // 25 mm for an unknown width
    EXPECT_DOUBLE_EQ(layers[0].width / layers[3].width, 10);
    for (std::size_t i = 1; i < layers.size(); ++i)
        EXPECT_NEAR(layers[i].corner.x, layers[i - 1].corner.x + layers[i - 1].width, 1e-9);
    EXPECT_EQ(layers[0].fill, KindColour(MaterialKind::masonry));
}

TEST(Section, DrawsTheOutsideOnTheLeftAlsoWhereTheFirstLayerIsInside) {
    ThermalConditions conditions;
    conditions.firstLayer = FirstLayer::inside;
    const Drawing drawing = DrawSection(wall, conditions, HeatFlow::horizontal);
    EXPECT_EQ(Layers(drawing).back().fill, KindColour(MaterialKind::masonry));
    EXPECT_EQ(Layers(drawing).front().fill, KindColour(MaterialKind::plaster));
}

TEST(Section, BendsTheTemperatureLineWhereLayersMeet) {
    const Drawing drawing = DrawSection(wall, {}, HeatFlow::horizontal);
    const auto layers = Layers(drawing);
    const auto points = Profile(drawing).points;
    ASSERT_EQ(points.size(), layers.size() + 3);
    for (std::size_t i = 0; i < layers.size(); ++i)
        EXPECT_DOUBLE_EQ(points[i + 1].x, layers[i].corner.x);
    EXPECT_NEAR(points[5].x, layers.back().corner.x + layers.back().width, 1e-9);
    EXPECT_LT(points.front().x, points[1].x);
    EXPECT_GT(points.back().x, points[5].x);
    EXPECT_DOUBLE_EQ(points[1].x - points.front().x, points.back().x - points[5].x);
}

TEST(Section, DrawsTemperaturesAtTheirHeight) {
    const Drawing drawing = DrawSection(wall, {}, HeatFlow::horizontal);
    const DrawnRectangle layer = Layers(drawing).front();
    const auto points = Profile(drawing).points;
    const auto temperature = [&](double y) {
        return 20 * (1 - (y - layer.corner.y) / layer.height);
    };
    const auto [layers, reason] = ThermalLayersOf(wall, FirstLayer::outside);
    const SteadyState steady = SteadyStateOf(layers, FilmsOf(HeatFlow::horizontal), {});
    EXPECT_NEAR(temperature(points.front().y), 0, 1e-9);
    EXPECT_NEAR(temperature(points.back().y), 20, 1e-9);
    for (int i = 0; i < steady.pointCount; ++i) {
        const auto place = static_cast<std::size_t>(i);
        EXPECT_NEAR(temperature(points[place + 1].y), steady.points[place].temperature, 1e-9);
    }
}

TEST(Section, WritesBothSurfacesTheAirAndTheTemperatureFactor) {
    const auto texts = Texts(DrawSection(wall, {}, HeatFlow::horizontal));
    EXPECT_THAT(texts, Contains("Outside air 0.0 °C"));
    EXPECT_THAT(texts, Contains("Inside air 20.0 °C"));
    EXPECT_THAT(texts, Contains("0.5 °C"));  // 20 * 0.04 / 1.59
    EXPECT_THAT(texts, Contains("18.4 °C")); // 20 * 1.46 / 1.59
    EXPECT_THAT(texts, Contains("fRsi 0.918"));
    EXPECT_THAT(texts, Contains("Layer 3: width unknown"));
}

TEST(Section, CountsTheFilmsOfTheFlowAndThoseInTheirPlace) {
    ThermalConditions conditions;
    EXPECT_THAT(Texts(DrawSection(wall, conditions, HeatFlow::downward)), Contains("fRsi 0.896"));
    conditions.insideFilm = 0.25;
    EXPECT_THAT(Texts(DrawSection(wall, conditions, HeatFlow::downward)), Contains("fRsi 0.854"));
}

TEST(Section, OfATransparentConstructionHasNoFiguresAndSaysWhy) {
    Construction glazing = wall;
    glazing.type = transparentType;
    const Drawing drawing = DrawSection(glazing, {}, HeatFlow::horizontal);
    EXPECT_EQ(Layers(drawing).size(), 4U);
    EXPECT_THAT(All<DrawnLine>(drawing), testing::IsEmpty());
    EXPECT_THAT(Texts(drawing), Contains("Not available: transparent construction"));
    EXPECT_THAT(Texts(drawing), Not(Contains(testing::HasSubstr("fRsi"))));
}

TEST(Section, OfNoLayersSaysSo) {
    const Drawing drawing = DrawSection(Construction(), {}, HeatFlow::horizontal);
    EXPECT_THAT(Layers(drawing), testing::IsEmpty());
    EXPECT_THAT(Texts(drawing), Contains("Not available: no layers"));
    EXPECT_GT(drawing.width, 0);
}

TEST(Section, KeepsFoilsVisibleAndHugeLayersOnThePaper) {
    const Drawing drawing =
        DrawSection(MakeConstruction({MakeLayer("FOIL", 200, 0.01), MakeLayer("ROCK", 2, 1e7)}), {},
                    HeatFlow::horizontal);
    const auto layers = Layers(drawing);
    EXPECT_GE(layers[0].width, 1);
    EXPECT_LT(layers[1].corner.x + layers[1].width, drawing.width);
    EXPECT_LT(drawing.width, 800);
}

TEST(Section, PutsTheNumbersOfThinLayersInRowsOfTheirOwn) {
    const Drawing drawing =
        DrawSection(MakeConstruction(std::vector<Layer>(15, MakeLayer("FOIL", 200, 0.01))), {},
                    HeatFlow::horizontal);
    for (const DrawnText& a : All<DrawnText>(drawing))
        for (const DrawnText& b : All<DrawnText>(drawing)) {
            const bool bothNumbers = a.utf8.size() < 3 && b.utf8.size() < 3
                                     && a.anchor == TextAnchor::middle
                                     && b.anchor == TextAnchor::middle && a.utf8 != b.utf8;
            EXPECT_FALSE(bothNumbers && a.base.y == b.base.y && std::abs(a.base.x - b.base.x) < 10)
                << a.utf8 << ' ' << b.utf8;
        }
    EXPECT_THAT(Texts(drawing), Contains("15"));
}

} // namespace
} // namespace strativo
