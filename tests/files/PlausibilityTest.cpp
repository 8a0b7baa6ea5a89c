#include "files/Findings.h"
#include "files/MaterialLibraryFile.h"
#include "files/MaterialPlausibility.h"
#include "support/Samples.h"
#include "support/TestProject.h"
#include "text/Lines.h"

#include <gmock/gmock.h>

namespace strativo {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

std::vector<std::string> RulesOf(const MaterialValues& values) {
    std::vector<std::string> rules;
    for (const BrokenRule& broken : RulesBrokenByMaterial(values))
        rules.push_back(broken.rule);
    return rules;
}

std::vector<std::string> TextsOf(const MaterialValues& values) {
    std::vector<std::string> texts;
    for (const BrokenRule& broken : RulesBrokenByMaterial(values))
        texts.push_back(broken.text);
    return texts;
}

struct ValuesCase {
    const char* name;
    MaterialValues values;
    std::vector<std::string> rules;
};

class MaterialPlausibility : public testing::TestWithParam<ValuesCase> {};

TEST_P(MaterialPlausibility, FindsTheRulesBroken) {
    EXPECT_EQ(RulesOf(GetParam().values), GetParam().rules);
}

const std::vector<std::string> none;
const std::vector<std::string> swapped = {"density-heat-swapped"};

INSTANTIATE_TEST_SUITE_P(
    Values, MaterialPlausibility,
    testing::Values(ValuesCase{"Brick", {0.84, 1700, 800}, none},
                    ValuesCase{"HeavyWithLittleHeat", {0.5, 300, 299}, swapped},
                    ValuesCase{"HeavyWithEnoughHeat", {0.5, 300, 300}, none},
                    ValuesCase{"LeadIsHeavierThanThatCorner", {9.9, 4501, 130}, none},
                    ValuesCase{"AGoodConductorMayHoldLittleHeat", {10, 4500, 130}, none},
                    ValuesCase{"MoreHeatThanAnySolid", {0.2, 2300, 2301}, swapped},
                    ValuesCase{"TheMostHeatOfASolid", {0.2, 2300, 2300}, none},
                    ValuesCase{"Water", {0.6, 1000, 4180}, none},
                    ValuesCase{"LighterThanWater", {0.4, 899, 4180}, swapped},
                    ValuesCase{"HeavierThanWater", {0.6, 1101, 4180}, swapped},
                    ValuesCase{"WaterWithTooLittleHeat", {0.6, 1000, 3899}, swapped},
                    ValuesCase{"Ice", {2.2, 917, 2000}, none},
                    ValuesCase{"ConcreteExchanged", {1.4, 840, 2100}, swapped},
                    ValuesCase{"LightButAConductor", {0.5, 899, 1170}, swapped},
                    ValuesCase{"LightButAConductorWithLittleHeat", {0.5, 899, 1168}, none},
                    ValuesCase{"LightAndAPoorConductor", {0.49, 600, 1600}, none},
                    ValuesCase{"InsulationExchanged", {0.149, 1201, 1199}, swapped},
                    ValuesCase{"AHeavyInsulator", {0.149, 1200, 800}, none},
                    ValuesCase{"ConductivityAtItsEnds", {0.003, 20, 1000}, none},
                    ValuesCase{"ConductivityBelow", {0.0029, 20, 1000}, {"conductivity-range"}},
                    ValuesCase{"Silver", {450, 10490, 235}, none},
                    ValuesCase{"ConductivityAbove", {450.1, 10490, 235}, {"conductivity-range"}},
                    ValuesCase{"DensityAtItsEnds", {0.026, 1, 1005}, none},
                    ValuesCase{"DensityBelow", {0.026, 0.9, 1005}, {"density-range"}},
                    ValuesCase{"DensityAbove", {40, 12001, 130}, {"density-range"}},
                    ValuesCase{"HeatBelow", {40, 11340, 99}, {"heat-range"}},
                    ValuesCase{"HeatAbove", {0.6, 1000, 4301}, {"heat-range"}},
                    ValuesCase{"NoRangeWhereTheyLookExchanged", {0.04, 12001, 99}, swapped},
                    ValuesCase{"NoConductivity", {0, 1700, 800}, {"no-conductivity"}},
                    ValuesCase{"NoDensity", {1, 0, 800}, {"no-heat-storage"}},
                    ValuesCase{"NoHeat", {1, 1700, 0}, {"no-heat-storage"}},
                    ValuesCase{"NothingAtAll", {0, 0, 0}, {"no-conductivity", "no-heat-storage"}},
                    ValuesCase{"Negative",
                               {-1, -2, -3},
                               {"negative-value", "negative-value", "negative-value"}}),
    [](const auto& test) { return test.param.name; });

TEST(MaterialPlausibility, TellsTheValues) {
    EXPECT_THAT(TextsOf({1.4, 840, 2100}),
                ElementsAre("density 840 and specific heat 2100 look exchanged"));
    EXPECT_THAT(TextsOf({1000, 0.5, 9000}),
                ElementsAre("density 0.5 and specific heat 9000 look exchanged",
                            "conductivity 1000 W/mK is not between 0.003 and 450"));
    EXPECT_THAT(TextsOf({1, 13000, 99.5}),
                ElementsAre("density 13000 kg/m3 is not between 1 and 12000",
                            "specific heat 99.5 J/kgK is not between 100 and 4300"));
    EXPECT_THAT(TextsOf({0, -1, 800}),
                ElementsAre("density -1 is negative", "the material has no conductivity"));
    EXPECT_THAT(TextsOf({1, 0, 800}), ElementsAre("the material has no density"));
    EXPECT_THAT(TextsOf({1, 1700, 0}), ElementsAre("the material has no specific heat"));
}

TEST(MaterialPlausibility, RaisesNoFalseAlarmForTheLibrariesThatComeWithTheProgram) {
    const MaterialLibrary standard = ParseStandardLibrary(SourceFile("data/stdmat.lby")).library;
    const MaterialLibrary user = ParseUserLibrary(SourceFile("data/examples/user.lby")).library;
    int seen = 0;
    for (const MaterialLibrary* library : {&standard, &user})
        for (int slot = 1; slot <= MaterialCount(*library); ++slot) {
            const Material& material = (*library)[slot];
            if (material.code < 0)
                continue;
            ++seen;
            EXPECT_THAT(TextsOf({material.conductivity, material.density, material.specificHeat}),
                        IsEmpty())
                << material.name;
        }
    EXPECT_EQ(seen, 85 + 10);
}

TEST(MaterialPlausibility, FindsMostExchangesInTheStandardLibrary) {
    const MaterialLibrary library = ParseStandardLibrary(SourceFile("data/stdmat.lby")).library;
    int found = 0;
    for (int slot = 1; slot <= MaterialCount(library); ++slot) {
        const Material& material = library[slot];
        const auto rules =
            RulesOf({material.conductivity, material.specificHeat, material.density});
        found += material.code > 0 && rules == swapped ? 1 : 0;
    }
    EXPECT_EQ(found, 49);
}

/// The fields before the last one; that one may contain commas itself.
std::vector<std::string> FieldsOf(std::string_view line) {
    std::vector<std::string> fields;
    for (int i = 0; i < 4; ++i) {
        const auto comma = line.find(',');
        fields.emplace_back(line.substr(0, comma));
        line.remove_prefix(comma + 1);
    }
    return fields;
}

TEST(MaterialPlausibility, RaisesNoFalseAlarmForPublishedMaterials) {
    const std::string bytes = SourceFile("tests/files/published-materials.csv");
    LineReader lines(bytes);
    lines.Next();
    int seen = 0;
    for (; !lines.AtEnd(); ++seen) {
        const std::vector<std::string> fields = FieldsOf(lines.Next());
        EXPECT_THAT(TextsOf({std::stod(fields[1]), std::stod(fields[2]), std::stod(fields[3])}),
                    IsEmpty())
            << fields[0];
    }
    EXPECT_EQ(seen, 110);
}

/// A project whose standard library holds the brick of each wall.
class Plausibility : public testing::Test {
protected:
    Plausibility() {
        project.standardLibrary[1] = {1, "BRICK", 0.5, 1000, 1000};
        project.standardLibrary[2].name = endOfLibrary;
    }

    Layer& AddWall() {
        const int number = AddConstruction(project, {"BRICK"});
        Layer& layer = project.constructions[number].layers.Edit(1);
        layer.density = 1000;
        layer.specificHeat = 1000;
        return layer;
    }

    Layer& AddCavity(int code, double thickness) {
        Layer& layer = AddWall();
        layer.materialCode = static_cast<std::int16_t>(code);
        layer.conductivity = static_cast<float>(code);
        layer.thickness = thickness;
        return layer;
    }

    /// "rule: text" of each finding, the text without its place.
    std::vector<std::string> Told() const {
        std::vector<std::string> told;
        for (const Finding& finding : FindingsOf(project))
            told.push_back(finding.rule + ": " + finding.text.substr(finding.text.find(": ") + 2));
        return told;
    }

    ScriptedPrompts prompts;
    Project project;
};

TEST_F(Plausibility, ASoundWallHasNoFindings) {
    AddWall();
    EXPECT_THAT(Told(), IsEmpty());
}

TEST_F(Plausibility, MaterialsAreJudgedByTheirLinkedValuesOnly) {
    Layer& layer = AddWall();
    layer.density = 840;
    layer.specificHeat = 2400;
    const std::vector<Finding> findings = FindingsOf(project);
    ASSERT_EQ(findings.size(), 1U);
    EXPECT_EQ(findings[0].rule, "density-heat-swapped");
    EXPECT_EQ(SeverityOf(findings[0]), Severity::warning);
    EXPECT_EQ(findings[0].construction, 1);
    EXPECT_EQ(findings[0].layer, 1);
    EXPECT_EQ(findings[0].text, "Construction 1 \"Construction 1\", layer 1: "
                                "density 840 and specific heat 2400 look exchanged");
    layer.materialCode = 7;
    EXPECT_THAT(Told(),
                ElementsAre("unlinked-material: material 7 is not in the standard library"));
}

TEST_F(Plausibility, ALayerOfMoreThanTwoMetres) {
    AddWall().thickness = 2000;
    EXPECT_THAT(Told(), IsEmpty());
    project.constructions[1].layers.Edit(1).thickness = 2001;
    EXPECT_THAT(Told(), ElementsAre("thickness-range: 2001 mm is more than 2000"));
}

TEST_F(Plausibility, ANegativeThicknessOrResistance) {
    AddWall().thickness = -5;
    AddCavity(-3, -0.05);
    EXPECT_THAT(Told(), testing::IsSupersetOf({"negative-value: thickness -5 is negative",
                                               "negative-value: resistance -0.05 is negative"}));
}

TEST_F(Plausibility, AUValueThatNoConstructionHas) {
    AddWall().conductivity = 0.0049F; // 100 mm: 0.0487 W/m2K
    AddCavity(-3, 0.3);
    AddWall().thickness = -25; // a resistance of -0.05, so 7.69 W/m2K
    EXPECT_THAT(Told(), ElementsAre("u-range: an indicative U-value of 0.0486 W/m2K is not between "
                                    "0.05 and 7",
                                    "u-range: an indicative U-value of 7.6923 W/m2K is not between "
                                    "0.05 and 7",
                                    "negative-value: thickness -25 is negative"));
}

TEST_F(Plausibility, AUValueThatAVeryGoodConstructionHas) {
    AddWall().conductivity = 0.0052F; // 100 mm: 0.0515 W/m2K
    EXPECT_THAT(Told(), IsEmpty());
}

TEST_F(Plausibility, AThinLayerOfHighConductivity) {
    Layer& layer = AddWall();
    layer.conductivity = 160;
    layer.thickness = 1;
    EXPECT_THAT(Told(), IsEmpty());
    layer.conductivity = 201;
    EXPECT_THAT(Told(), ElementsAre("thin-conductive: 1 mm of conductivity 201 W/mK is hard on "
                                    "simulation programs"));
}

TEST_F(Plausibility, AbsorptionsOfTransparentConstructionsOnly) {
    AddWall().absorption = 1.5F;
    EXPECT_THAT(Told(), IsEmpty());
    project.constructions[1].type = transparentType;
    EXPECT_THAT(Told(), ElementsAre("absorption-range: absorption 1.5 is not between 0 and 1"));
}

TEST_F(Plausibility, LayersThatAbsorbMoreThanThereIs) {
    Layer& first = AddWall();
    project.constructions[1].type = transparentType;
    first.absorption = 0.5F;
    Layer second = first;
    second.absorption = 0.5F;
    project.constructions[1].layers.Edit(2) = second;
    EXPECT_THAT(Told(), IsEmpty());
    project.constructions[1].layers.Edit(2).absorption = 0.51F;
    EXPECT_THAT(Told(), ElementsAre("absorption-sum: the layers absorb more than there is"));
    project.constructions[1].layers.Edit(2).absorption = -0.1F;
    EXPECT_THAT(Told(), ElementsAre("absorption-range: absorption -0.1 is not between 0 and 1"));
}

TEST_F(Plausibility, NamesThatDifferInBlanksAndLetterCaseOnly) {
    for (const char* name : {"W\xC4ND \x8A", "Roof", " w\xE4nd \x9A  ", "Wand"}) {
        AddWall();
        project.constructions[project.constructions.Size()].name = name;
    }
    EXPECT_THAT(Told(), ElementsAre("duplicate-name: construction 1 has this name too"));
    EXPECT_EQ(FindingsOf(project)[0].construction, 3);
}

TEST_F(Plausibility, RemovedConstructionsTakeNoName) {
    AddWall();
    AddWall();
    project.constructions[2].name = project.constructions[1].name;
    project.constructions[1].window.open = false;
    EXPECT_THAT(Told(), IsEmpty());
}

TEST_F(Plausibility, AThicknessThatTheFileHoldsRounded) {
    Layer& layer = AddWall();
    layer.thickness = 12.5;
    EXPECT_THAT(Told(), ElementsAre("rounded-thickness: 12.5 is written to the file as 13"));
    layer.thickness = 0.0124 * 1000;
    EXPECT_THAT(Told(), ElementsAre("rounded-thickness: 12.4 is written to the file as 12"));
    layer.thickness = 12.0004;
    EXPECT_THAT(Told(), IsEmpty());
    layer.thickness = 12.00051;
    EXPECT_THAT(Told(), ElementsAre("rounded-thickness: 12.00051 is written to the file as 12"));
}

TEST_F(Plausibility, AResistanceThatTheFileHoldsRounded) {
    Layer& layer = AddCavity(-3, 0.16);
    EXPECT_THAT(Told(), IsEmpty());
    layer.thickness = 0.1234;
    EXPECT_THAT(Told(), ElementsAre("rounded-thickness: 0.1234 is written to the file as 0.123"));
    layer.thickness = 0.1230004;
    EXPECT_THAT(Told(), IsEmpty());
}

TEST_F(Plausibility, EveryThicknessOfWholeMillimetresComesBack) {
    Layer& layer = AddWall();
    for (int thickness = 1; thickness <= 2000; ++thickness) {
        layer.thickness = thickness / 1000.0 * 1000;
        EXPECT_THAT(Told(), IsEmpty()) << thickness;
    }
}

TEST_F(Plausibility, AWidthTypedAsTheResistanceOfACavity) {
    Layer& layer = AddCavity(-3, 2);
    EXPECT_THAT(Told(), IsEmpty());
    layer.thickness = 10;
    EXPECT_THAT(Told(), ElementsAre("cavity-resistance: 10 m2K/W is not between 0.01 and 2; a "
                                    "type 3 cavity takes its resistance, not its width"));
    layer.thickness = 0.009;
    EXPECT_THAT(Told(), testing::Contains(testing::StartsWith("cavity-resistance: 0.009 m2K/W")));
}

TEST_F(Plausibility, TheCurrentLayersFindingsAreOneLine) {
    EXPECT_EQ(CurrentLayerFinding(project), "");
    Layer& layer = AddWall();
    EXPECT_EQ(CurrentLayerFinding(project), "");
    layer.thickness = 12.5;
    layer.specificHeat = 0;
    EXPECT_EQ(CurrentLayerFinding(project),
              "Layer 1: the material has no specific heat; 12.5 is written to the file as 13");
    project.constructions[1].currentLayer = 0;
    EXPECT_EQ(CurrentLayerFinding(project), "");
}

TEST_F(Plausibility, TheCurrentLayerOfTheCurrentConstructionCounts) {
    AddWall();
    project.constructions[1].layers.Edit(3) = project.constructions[1].layers[1];
    project.constructions[1].layers.Edit(3).materialCode = 9;
    project.constructions[1].currentLayer = 2; // in slot 3, slot 2 holds no layer
    EXPECT_EQ(CurrentLayerFinding(project), "Layer 3: material 9 is not in the standard library");
    AddWall();
    EXPECT_EQ(CurrentLayerFinding(project), "");
    project.constructions[2].window.open = false;
    EXPECT_EQ(CurrentLayerFinding(project), "");
}

TEST(FindingRules, HaveNamesOfTheirOwn) {
    for (const FindingRule& rule : FindingRules())
        EXPECT_EQ(FindFindingRule(rule.name), &rule) << rule.name;
    EXPECT_EQ(FindFindingRule("frob"), nullptr);
}

} // namespace
} // namespace strativo
