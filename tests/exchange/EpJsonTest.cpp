#include "exchange/EpJson.h"

#include "edit/ConstructionSlots.h"
#include "edit/GlassTypes.h"
#include "exchange/EpNames.h"

#include <gmock/gmock.h>

namespace strativo {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

Layer Brick(double millimetres = 102) {
    Layer layer;
    layer.name = "BRICK";
    layer.materialCode = 110;
    layer.thickness = millimetres;
    layer.conductivity = 0.78F;
    layer.density = 1760;
    layer.specificHeat = 790;
    return layer;
}

Layer Cavity(std::int16_t code, double thickness = 50) {
    Layer layer;
    layer.name = "CAVITY";
    layer.materialCode = code;
    layer.conductivity = code;
    layer.thickness = thickness;
    return layer;
}

class EpModelOf : public testing::Test {
protected:
    void Add(const std::string& name, const std::vector<Layer>& layers,
             std::int16_t type = opaqueType) {
        OpenConstructionWindow(project);
        Construction& construction = project.constructions[project.currentConstruction];
        construction.name = name;
        construction.type = type;
        int slot = 0;
        for (const Layer& layer : layers)
            construction.layers.Edit(++slot) = layer;
    }

    EpModel Make(EpOptions options = {}) const { return MakeEpModel(project, options); }

    /// "RULE" of each thing left out.
    std::vector<std::string> LeftOutRules(EpOptions options = {}) const {
        std::vector<std::string> rules;
        for (const LeftOut& leftOut : Make(options).leftOut)
            rules.push_back(leftOut.rule);
        return rules;
    }

    std::vector<std::string> MaterialNames() const {
        std::vector<std::string> names;
        for (const EpMaterial& material : Make().materials)
            names.push_back(material.name);
        return names;
    }

    Project project;
};

TEST_F(EpModelOf, LayersGoFromOutsideToInsideAsAsked) {
    Add("Wall", {Brick(), Cavity(-1), Brick(75)});
    ASSERT_EQ(Make().constructions.size(), 1u);
    EXPECT_THAT(Make().constructions[0].layers,
                ElementsAre("BRICK (102 mm)", "CAVITY", "BRICK (75 mm)"));
    EXPECT_THAT(Make({.firstLayerInside = true}).constructions[0].layers,
                ElementsAre("BRICK (75 mm)", "CAVITY", "BRICK (102 mm)"));
}

TEST_F(EpModelOf, MaterialsHaveTheValuesThatShowPrints) {
    Add("Wall", {Brick()});
    ASSERT_EQ(Make().materials.size(), 1u);
    const EpMaterial material = Make().materials[0];
    EXPECT_EQ(material.kind, EpMaterialKind::massive);
    EXPECT_EQ(material.thickness, 0.102);
    EXPECT_EQ(material.conductivity, 0.78);
    EXPECT_EQ(material.density, 1760);
    EXPECT_EQ(material.specificHeat, 790);
}

TEST_F(EpModelOf, MaterialsWithoutHeatStorageAreResistances) {
    Layer foil = Brick(100);
    foil.conductivity = 0.5F;
    foil.specificHeat = 99.9;
    Layer weightless = foil;
    weightless.specificHeat = 1000;
    weightless.density = 0;
    Add("Wall", {foil, weightless});
    for (const EpMaterial& material : Make().materials) {
        EXPECT_EQ(material.kind, EpMaterialKind::noMass);
        EXPECT_EQ(material.resistance, 0.2);
    }
}

TEST_F(EpModelOf, TheLeastSpecificHeatIsStored) {
    Layer foil = Brick(100);
    foil.specificHeat = 100;
    Add("Wall", {foil});
    EXPECT_EQ(Make().materials.at(0).kind, EpMaterialKind::massive);
}

TEST_F(EpModelOf, CavitiesAreAirGapsOfTheirResistance) {
    const std::vector<std::pair<int, double>> resistances = {{-1, 0.11}, {-5, 0.11}, {-11, 0.11},
                                                             {-2, 0.18}, {-6, 0.18}, {-3, 0.16}};
    for (const auto& [code, resistance] : resistances) {
        project = Project();
        Add("Wall", {Brick(), Cavity(static_cast<std::int16_t>(code), 0.16), Brick()});
        EXPECT_EQ(Make().materials.at(1).kind, EpMaterialKind::airGap);
        EXPECT_EQ(Make().materials.at(1).resistance, resistance) << code;
        EXPECT_EQ(Make().materials.at(1).name, code == -3 ? "CAVITY (0.16 m2K/W)" : "CAVITY");
    }
}

TEST_F(EpModelOf, TheSameValuesOfOneNameAreOneObject) {
    Layer other = Brick();
    other.density = 1800;
    Layer lower = Brick();
    lower.name = "brick";
    Add("Wall", {Brick(), Brick(), other, lower, other});
    Add("wall", {lower});
    EXPECT_THAT(MaterialNames(),
                ElementsAre("BRICK (102 mm)", "BRICK (102 mm) #2", "brick (102 mm) #3"));
    EXPECT_THAT(Make().constructions[0].layers,
                ElementsAre("BRICK (102 mm)", "BRICK (102 mm)", "BRICK (102 mm) #2",
                            "brick (102 mm) #3", "BRICK (102 mm) #2"));
    EXPECT_EQ(Make().constructions[1].name, "wall #2");
}

TEST_F(EpModelOf, EmptyNamesAreNumbers) {
    Layer nameless = Brick();
    nameless.name = " ";
    Add("", {Brick()});
    Add(" ", {nameless});
    EXPECT_EQ(Make().constructions[0].name, "Construction 1");
    EXPECT_EQ(Make().constructions[1].name, "Construction 2");
    EXPECT_THAT(MaterialNames(), ElementsAre("BRICK (102 mm)", "Material 110 (102 mm)"));
}

TEST_F(EpModelOf, TheFirstReasonToLeaveOutCounts) {
    Layer unlinked;
    unlinked.name = "1";
    unlinked.materialCode = 999;
    unlinked.thickness = 10;
    Layer insulator = Brick();
    insulator.conductivity = 0;
    Layer thin = Brick(0.0001);
    thin.density = 0;
    Layer endless = thin;
    endless.thickness = 1e307;
    endless.conductivity = 1e-38F;
    const auto ruleOf = [&](const std::vector<Layer>& layers) {
        project = Project();
        Add("W", layers);
        const std::vector<std::string> rules = LeftOutRules();
        return rules.size() == 1 ? rules[0] : "none or several";
    };
    EXPECT_EQ(ruleOf({}), "no-layers");
    EXPECT_EQ(ruleOf(std::vector<Layer>(11, unlinked)), "too-many-layers");
    EXPECT_EQ(ruleOf({Cavity(-4), unlinked}), "unknown-cavity");
    EXPECT_EQ(ruleOf({Brick(), Cavity(-3, 0)}), "cavity-at-surface");
    EXPECT_EQ(ruleOf({Brick(), Cavity(-3, 0), Brick()}), "zero-thickness");
    EXPECT_EQ(ruleOf({unlinked, Brick(0)}), "unlinked-material");
    EXPECT_EQ(ruleOf({insulator}), "no-conductivity");
    EXPECT_EQ(ruleOf({Brick(0)}), "zero-thickness");
    EXPECT_EQ(ruleOf({thin}), "resistance-too-small");
    EXPECT_EQ(ruleOf({endless}), "resistance-too-large") << "JSON has no infinity";
    EXPECT_EQ(ruleOf(std::vector<Layer>(10, Brick())), "none or several");
}

TEST_F(EpModelOf, WhatIsTransparentIsToldUnlessOnlyTheRestIsWanted) {
    Add("Window", {}, transparentType);
    Add("Empty", {});
    AddGlassType(project, "CLEAR");
    AddGlassType2D(project, "BLIND");
    EXPECT_THAT(LeftOutRules(),
                ElementsAre("transparent", "no-layers", "glass-type", "glass-type"));
    EXPECT_THAT(LeftOutRules({.opaqueOnly = true}), ElementsAre("no-layers"));
    EXPECT_THAT(Make().constructions, IsEmpty());
    EXPECT_EQ(Make().leftOut[0].text.substr(0, 32), "construction 1 Window left out: ");
}

TEST(EpNames, AreWrittenInTheLettersThatTheEngineTakes) {
    EXPECT_EQ(EpName(" \xC4gypten \xE6 \xC6 \xDF \xDE\xF0 3\xB2 "), "Agypten ae AE ss THd 32");
    EXPECT_EQ(EpName("a,b;c!d\x80\xD7\x81\t"), "a_b_c_d____");
    EXPECT_EQ(EpName("\x93x\x94 \x91y\x92 \x96\x97 \x83 \x8C\x9C \x8A\x9A\x9F\xB9\xA0"),
              "\"x\" 'y' -- f OEoe SsY1");
    EXPECT_EQ(EpName("\xA0\xA0"), "");
}

TEST(EpNames, AreCutBeforeTheirEndings) {
    EpNames names;
    const std::string longName = std::string(89, 'x') + " yyyyyyyyyyyyyyyyyyyy";
    EXPECT_EQ(names.Take(longName, " (102 mm)"), std::string(89, 'x') + " (102 mm)");
    EXPECT_EQ(names.Take(longName, " (102 mm)"), std::string(87, 'x') + " (102 mm) #2");
    EXPECT_EQ(names.Take(std::string(200, 'z'), "").size(), 99u);
    EXPECT_EQ(names.Take(std::string(200, 'Z'), "").size(), 99u);
}

} // namespace
} // namespace strativo
