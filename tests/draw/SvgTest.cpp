#include "draw/Svg.h"

#include "draw/GlassCurves.h"

#include <gmock/gmock.h>

namespace strativo {
namespace {

using testing::HasSubstr;
using testing::StartsWith;

TEST(Svg, HasAnElementForEachShape) {
    Drawing drawing{100, 50.5, "A < B", {}};
    drawing.Add(DrawnRectangle{{1, 2}, 3, 4, 0xB9573F, std::nullopt});
    drawing.Add(DrawnRectangle{{1, 2}, 3, 4, std::nullopt, Stroke{0x000001, 0.6, 3}});
    drawing.Add(DrawnLine{{{0, 0}, {10.254, 5}}, {0xFFFFFF, 2, 0}});
    drawing.Add(DrawnDot{{5, 6}, 2.5, 0, {0, 1, 0}});
    drawing.Add(DrawnText{{7, 8}, "R & \"D\"\n", TextAnchor::end, 9, 0x222222, true});
    EXPECT_EQ(
        SvgElement(drawing, "section"),
        "<svg class=\"section\" viewBox=\"0 0 100 50.5\" width=\"100\" height=\"50.5\" role=\"img\""
        " font-family=\"'Liberation Sans', 'DejaVu Sans', sans-serif\">\n"
        "<title>A &lt; B</title>\n"
        "<rect x=\"1\" y=\"2\" width=\"3\" height=\"4\" fill=\"#b9573f\"/>\n"
        "<rect x=\"1\" y=\"2\" width=\"3\" height=\"4\" fill=\"none\" stroke=\"#000001\""
        " stroke-width=\"0.6\" stroke-dasharray=\"3\"/>\n"
        "<polyline points=\"0,0 10.25,5\" fill=\"none\" stroke=\"#ffffff\" stroke-width=\"2\""
        " stroke-linejoin=\"round\"/>\n"
        "<circle cx=\"5\" cy=\"6\" r=\"2.5\" fill=\"#000000\" stroke=\"#000000\""
        " stroke-width=\"1\"/>\n"
        "<text x=\"7\" y=\"8\" font-size=\"9px\" fill=\"#222222\" text-anchor=\"end\""
        " transform=\"rotate(-90 7 8)\">R &amp; &quot;D&quot; </text>\n"
        "</svg>\n");
}

TEST(Svg, EscapesMarkupAndTurnsControlCharactersIntoBlanks) {
    EXPECT_EQ(Escaped("<a href=\"x\"> & 'b'"), "&lt;a href=&quot;x&quot;&gt; &amp; 'b'");
    EXPECT_EQ(Escaped("a\x1B\x7F"
                      "b\r\n"),
              "a  b  ");
    EXPECT_EQ(Escaped("a\xC2\x80\xC2\x9B\xC2\x9F"
                      "b"),
              "a   b");
    EXPECT_EQ(Escaped("\xC2\xA0\xC3\x9B\xE2\x82\xAC\xC2"), "\xC2\xA0\xC3\x9B\xE2\x82\xAC\xC2");
}

TEST(Svg, AsAFileHasItsNamespaceAndWhitePaper) {
    const std::string file = SvgFile(Drawing{10, 20, "", {}});
    EXPECT_THAT(file, StartsWith("<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<svg "
                                 "xmlns=\"http://www.w3.org/2000/svg\" "));
    EXPECT_THAT(file, HasSubstr("<rect x=\"0\" y=\"0\" width=\"10\" height=\"20\" "
                                "fill=\"#ffffff\"/>"));
}

GlassType SomeGlass() {
    GlassType type;
    for (int number = 1; number <= AngularValues::last; ++number) {
        type.transmission[number] = number == 1 ? 0.692F : 0.7F;
        type.absorption[number] = number == 1 ? 0.172F : 0.1F;
    }
    return type;
}

TEST(GlassCurves, AreToldApartByDashesAndDotsAndShowTheDiffuseValues) {
    const std::string svg = SvgElement(DrawGlassCurves(SomeGlass()), "curve");
    EXPECT_THAT(svg, HasSubstr(">0.692</text>"));
    EXPECT_THAT(svg, HasSubstr(">0.172</text>"));
    EXPECT_THAT(svg, HasSubstr(">Transmission</text>"));
    EXPECT_THAT(svg, HasSubstr(">Absorption</text>"));
    EXPECT_THAT(svg, HasSubstr("stroke=\"#b03a2e\" stroke-width=\"1.8\" stroke-dasharray=\"6\""));
    EXPECT_THAT(svg, testing::Not(HasSubstr(">Diffusion</text>")));
}

TEST(GlassCurves, ShowDiffusionWhereTheTypeHasIt) {
    GlassType type = SomeGlass();
    type.hasDiffusion = true;
    EXPECT_THAT(SvgElement(DrawGlassCurves(type), "curve"), HasSubstr(">Diffusion</text>"));
}

TEST(GlassCurves, KeepTheFiguresOfEqualDiffuseValuesApart) {
    GlassType type = SomeGlass();
    type.absorption[1] = type.transmission[1];
    std::vector<double> heights;
    for (const DrawnShape& shape : DrawGlassCurves(type).shapes)
        if (const auto* text = std::get_if<DrawnText>(&shape); text && text->utf8 == "0.692")
            heights.push_back(text->base.y);
    ASSERT_EQ(heights.size(), 2U);
    EXPECT_GE(heights[1] - heights[0], 10);
}

} // namespace
} // namespace strativo
