#include "cli/CommandRun.h"

#include <algorithm>
#include <gmock/gmock.h>
#include <sstream>

namespace strativo {
namespace {

using nlohmann::json;
using testing::ElementsAre;
using testing::EndsWith;
using testing::HasSubstr;
using testing::StartsWith;

class ThermalCommand : public CliTest {
protected:
    ThermalCommand() {
        folder.Write("std.lby", "12'FACE BRICK' 0.84 1700 800\r\n"
                                "13'WOOL' 0.04 30 0\r\n");
        folder.Write("wall.con", WallFile({standardLine}, {brickPart, woolPart}));
    }

    static RunResult RunHouse(std::vector<std::string> options) {
        std::filesystem::current_path(STRATIVO_SOURCE "/data/examples");
        options.insert(options.begin(), {"thermal", "house.con"});
        return RunTool(options);
    }
    static json FirstConstruction(const RunResult& result) {
        return Document(result).at(0).at("constructions").at(0);
    }

    const std::string woolPart = "_ 2 =       13      0.100      0            * WOOL";
};

TEST_F(ThermalCommand, ShowsAWallOfTheExampleHouseInColumns) {
    const RunResult result = RunHouse({});
    EXPECT_EQ(result.status, 0);
    EXPECT_EQ(result.err, "");
    EXPECT_THAT(
        result.out,
        StartsWith("Construction 1  External wall, cavity  (Opaque)   outside to inside\n"
                   "  340.0 mm   254.8 kg/m2   219.4 kJ/m2K   R of the layers 3.695 m2K/W   "
                   "U without films 0.271 W/m2K\n"
                   "  Heat flow      Rsi    Rse      R      U\n"
                   "  horizontal    0.13   0.04  3.865  0.259\n"
                   "  upward        0.10   0.04  3.835  0.261\n"
                   "  downward      0.17   0.04  3.905  0.256\n"
                   "  Horizontal, inside 20.0, outside 0.0: 5.18 W/m2, fRsi 0.966\n"
                   "    Outside surface                                      0.2\n"
                   "    1 BRICK CLAY 1760                  102.0  0.131      0.9\n"
                   "    2 CAVITY Type 1 NORMAL              50.0  0.110      1.5\n"
                   "    3 PIR FOAM 30                       75.0  3.000     17.0\n"
                   "    4 AERATED CONCRETE 600             100.0  0.417     19.1\n"
                   "    5 PLASTER GYPSUM 1000               13.0  0.037     19.3  Inside surface\n"
                   "  24 h   Inside   Y 3.02 W/m2K  lead 2.7 h   kappa 43.0 kJ/m2K   F 0.74  lag "
                   "1.3 h\n"
                   "         Outside  Y 7.53 W/m2K  lead 3.3 h   kappa 105.2 kJ/m2K\n"
                   "         Through  Y12 0.113 W/m2K  lag 8.7 h   f 0.438\n"
                   "\nConstruction 2  "));
}

TEST_F(ThermalCommand, KeepsTheFiguresOfThickLayersApart) {
    folder.Write("rock.con", WallFile({"_ 1 =       12      1000.000      0",
                                       "_ 2 =       12      9.9990      0"}));
    const RunResult result =
        RunTool({"thermal", "--inside", "1000000", "--rsi", "1000", "rock.con"});
    EXPECT_THAT(result.out, HasSubstr("  horizontal  1000.00   0.04 2202.420  0.000\n"));
    EXPECT_THAT(result.out, HasSubstr("    1 FACE BRICK                      1000000.0 1190.476 "));
    EXPECT_THAT(result.out, HasSubstr("    2 FACE BRICK                      9999.0 11.904"));
}

TEST_F(ThermalCommand, PrintsTheWorkedWallOfTheManual) {
    const std::string page = SourceFile("docs/manual/thermal.html");
    const std::string start = "<pre id=\"worked\">";
    const std::size_t from = page.find(start) + start.size();
    const std::string worked = page.substr(from, page.find("</pre>", from) - from);
    ASSERT_GT(worked.size(), 500U);
    EXPECT_THAT(RunHouse({}).out, StartsWith(worked + "\n"));
}

TEST_F(ThermalCommand, SaysOnceThatCavityResistancesAreFixed) {
    const std::string note = "\n\nCavities have the fixed resistances of the program, not those of "
                             "ISO 6946 for width, direction and ventilation; for another value use "
                             "a type 3 cavity.\n";
    const std::string out = RunHouse({}).out;
    EXPECT_THAT(out, EndsWith(note));
    EXPECT_EQ(out.find(note), out.rfind(note));
}

TEST_F(ThermalCommand, SaysWhyFiguresAreNotAvailable) {
    EXPECT_THAT(RunHouse({}).out,
                HasSubstr("Construction 17  Conservatory, single glazing  (Transparent)   outside "
                          "to inside\n  not available: transparent construction\n"));
    std::filesystem::current_path(folder.Path());
    folder.Write("zero.con", WallFile({standardLine}, {brickPart, "_ 2 = 13 0 0"}));
    const RunResult result = RunTool({"thermal", "zero.con"});
    EXPECT_EQ(result.status, 0);
    EXPECT_THAT(result.out, StartsWith("Construction 1  Wall  (Opaque)   outside to inside\n"
                                       "  not available: layer 2: zero thickness\n\n"));
}

TEST_F(ThermalCommand, ShowsEachDirectionOfFlowAskedFor) {
    const std::string out = RunTool({"thermal", "wall.con", "--flow", "all"}).out;
    EXPECT_THAT(out, HasSubstr("  Horizontal, inside"));
    EXPECT_THAT(out, HasSubstr("  Upward, inside"));
    EXPECT_THAT(out, HasSubstr("  Downward, inside"));
    const std::string down = RunTool({"thermal", "wall.con", "--flow", "down"}).out;
    EXPECT_THAT(down, HasSubstr("  Downward, inside"));
    EXPECT_THAT(down, testing::Not(HasSubstr("  Horizontal, inside")));
}

TEST_F(ThermalCommand, TakesNegativeTemperaturesAndWritesNoMinusBeforeZero) {
    const std::string out =
        RunTool({"thermal", "wall.con", "--inside", "0.01", "--outside", "-10.5"}).out;
    EXPECT_THAT(out, HasSubstr("Horizontal, inside 0.0, outside -10.5: "));
    EXPECT_THAT(RunTool({"thermal", "wall.con", "--outside=-0.01"}).out,
                HasSubstr(", outside 0.0: "));
}

TEST_F(ThermalCommand, ReplacesFilmsOfAllFlows) {
    const std::string out = RunTool({"thermal", "wall.con", "--rsi", "0.25", "--rse", "0"}).out;
    EXPECT_THAT(out, HasSubstr("  horizontal    0.25   0.00  2.875"));
    EXPECT_THAT(out, HasSubstr("  upward        0.25   0.00  2.875"));
}

TEST_F(ThermalCommand, ListsFromOutsideToInsideWhicheverSideTheFirstLayerFaces) {
    const std::string out = RunTool({"thermal", "wall.con", "--first-layer", "inside"}).out;
    EXPECT_LT(out.find("    2 WOOL"), out.find("    1 FACE BRICK"));
    EXPECT_THAT(out, HasSubstr("    1 FACE BRICK                       105.0  0.125"));
}

TEST_F(ThermalCommand, NamesLayersThatStoreNoHeat) {
    EXPECT_THAT(RunTool({"thermal", "wall.con"}).out,
                HasSubstr("\n  Layer 2 stores no heat: its density or specific heat is 0\n"));
}

TEST_F(ThermalCommand, ShowsNoWidthOfACavityGivenByItsResistance) {
    folder.Write("cavity.con", WallFile({standardLine}, {brickPart, "_ 2 = -3 0.00021 0"}));
    const std::string out = RunTool({"thermal", "cavity.con"}).out;
    EXPECT_THAT(out, HasSubstr("\n  thickness n/a   178.5 kg/m2   "));
    EXPECT_THAT(out, HasSubstr("    2 CAVITY Tyep 3 width = resistanc    n/a  0.210"));
    const json construction = FirstConstruction(RunTool({"thermal", "cavity.con", "--json"}));
    EXPECT_TRUE(construction.at("thickness").is_null());
    const json& temperatures = construction.at("flows").at(0).at("temperatures");
    EXPECT_EQ(temperatures.at(1).at("depth"), 105.0);
    EXPECT_TRUE(temperatures.at(2).at("depth").is_null());
}

TEST_F(ThermalCommand, AsJsonHasTheConditionsAndEveryFigure) {
    const RunResult result = RunHouse({"--json", "--outside", "-5", "--flow", "up"});
    EXPECT_EQ(result.status, 0);
    const json file = Document(result).at(0);
    EXPECT_EQ(file.at("file"), "house.con");
    EXPECT_EQ(file.at("messages"), json::array());
    EXPECT_EQ(file.at("ended"), false);
    EXPECT_EQ(file.at("period"), 24);
    EXPECT_EQ(file.at("insideTemperature"), 20);
    EXPECT_EQ(file.at("outsideTemperature"), -5);
    EXPECT_EQ(file.at("firstLayer"), "outside");
    const json& wall = file.at("constructions").at(0);
    EXPECT_EQ(wall.at("number"), 1);
    EXPECT_EQ(wall.at("name"), "External wall, cavity");
    EXPECT_EQ(wall.at("type"), 0);
    EXPECT_EQ(wall.at("available"), true);
    EXPECT_EQ(wall.at("reason"), "");
    EXPECT_NEAR(wall.at("thickness"), 340, 1e-9);
    EXPECT_NEAR(wall.at("mass"), 254.77, 1e-9);
    EXPECT_NEAR(wall.at("heatCapacity"), 219.3658, 1e-9);
    EXPECT_EQ(wall.at("layers").size(), 5U);
    EXPECT_EQ(wall.at("layersWithoutHeatStorage"), json::array());
    EXPECT_EQ(wall.at("steady").size(), 3U);
    EXPECT_EQ(wall.at("steady").at(2).at("flow"), "downward");
    ASSERT_EQ(wall.at("flows").size(), 1U);
}

TEST_F(ThermalCommand, AsJsonHasTheFiguresOfEachFlow) {
    const json wall = FirstConstruction(RunHouse({"--json", "--outside", "-5", "--flow", "up"}));
    const json& flow = wall.at("flows").at(0);
    EXPECT_EQ(flow.at("flow"), "upward");
    EXPECT_EQ(flow.at("insideSurfaceResistance"), 0.1);
    const double resistance = flow.at("resistance");
    EXPECT_NEAR(resistance, wall.at("layerResistance").get<double>() + 0.14, 1e-12);
    EXPECT_NEAR(flow.at("heatFlux"), 25 / resistance, 1e-12);
    EXPECT_EQ(flow.at("temperatures").size(), 6U);
    EXPECT_EQ(flow.at("temperatures").front().at("place"), "outsideSurface");
    EXPECT_EQ(flow.at("temperatures").front().at("slot"), 0);
    EXPECT_EQ(flow.at("temperatures").at(1).at("place"), "interface");
    EXPECT_EQ(flow.at("temperatures").back().at("place"), "insideSurface");
    EXPECT_EQ(flow.at("temperatures").back().at("slot"), 5);
    EXPECT_NEAR(flow.at("temperatures").back().at("depth"), 340, 1e-9);
    EXPECT_EQ(flow.at("heatTransferMatrix").at("z12").size(), 2U);
    for (const char* name :
         {"temperatureFactor", "insideAdmittance", "outsideAdmittance", "periodicTransmittance",
          "insideAdmittanceLead", "outsideAdmittanceLead", "periodicTransmittanceLag",
          "surfaceFactorLag", "insideHeatCapacity", "outsideHeatCapacity", "decrementFactor",
          "surfaceFactor"})
        EXPECT_TRUE(flow.at(name).is_number()) << name;
}

TEST_F(ThermalCommand, AsJsonHasOnlyTheReasonWhereThereAreNoFigures) {
    const json file = Document(RunHouse({"--json"})).at(0);
    const json& window = file.at("constructions").back();
    EXPECT_EQ(window.at("available"), false);
    EXPECT_EQ(window.at("reason"), "transparent construction");
    EXPECT_FALSE(window.contains("flows"));
}

/// Fields of a line without quotes.
std::vector<std::string> Fields(const std::string& line) {
    std::vector<std::string> fields;
    std::istringstream stream(line + ",end");
    for (std::string field; std::getline(stream, field, ',');)
        fields.push_back(field);
    fields.pop_back();
    return fields;
}

TEST_F(ThermalCommand, AsCsvHasARowForEachConstructionAndFlow) {
    folder.Write("two.con", WallFile({standardLine}, {brickPart})
                                + "\r\n!CONSTRUCTION 'B'\r\n!PARTS\r\n_ 1 = 12 0 0\r\n!END\r\n");
    const RunResult result = RunTool({"thermal", "--csv", "--flow", "all", "two.con"});
    EXPECT_EQ(result.status, 0);
    std::vector<std::string> lines;
    std::istringstream stream(result.out);
    for (std::string line; std::getline(stream, line);) {
        ASSERT_THAT(line, EndsWith("\r"));
        lines.push_back(line.substr(0, line.size() - 1));
    }
    ASSERT_EQ(lines.size(), 7U);
    const auto names = Fields(lines[0]);
    ASSERT_EQ(names.size(), 32U);
    for (const std::string& line : lines)
        EXPECT_EQ(Fields(line).size(), names.size()) << line;
    EXPECT_THAT(lines[1], StartsWith("two.con,1,Wall,0,horizontal,0.13,0.04,20,0,105,178.5,"));
    EXPECT_THAT(lines[2], StartsWith("two.con,1,Wall,0,upward,0.1,0.04,20,0,105,"));
    EXPECT_THAT(lines[3], StartsWith("two.con,1,Wall,0,downward,0.17,"));
    const auto empty = Fields(lines[4]);
    EXPECT_EQ(empty[2], "B");
    EXPECT_EQ(empty.back(), "layer 1: zero thickness");
    EXPECT_EQ(std::count(empty.begin() + 9, empty.end() - 1, ""), 22);
}

TEST_F(ThermalCommand, AsCsvHasTheFiguresOfTheJson) {
    const auto lines = RunTool({"thermal", "--csv", "wall.con"}).out;
    const auto row = Fields(lines.substr(lines.find("\r\n") + 2, lines.rfind("\r\n")));
    const json wall = FirstConstruction(RunTool({"thermal", "--json", "wall.con"}));
    const json& flow = wall.at("flows").at(0);
    const auto same = [&](std::size_t column, const json& value) {
        EXPECT_EQ(std::stod(row.at(column)), value.get<double>()) << column;
    };
    same(9, wall.at("thickness"));
    same(11, wall.at("heatCapacity"));
    same(12, wall.at("layerResistance"));
    same(13, flow.at("resistance"));
    same(14, flow.at("transmittance"));
    same(15, wall.at("transmittanceWithoutFilms"));
    same(16, flow.at("heatFlux"));
    same(17, flow.at("temperatures").front().at("temperature"));
    same(18, flow.at("temperatures").back().at("temperature"));
    same(19, flow.at("temperatureFactor"));
    same(20, flow.at("insideAdmittance"));
    same(21, flow.at("insideAdmittanceLead"));
    same(22, flow.at("outsideAdmittance"));
    same(23, flow.at("outsideAdmittanceLead"));
    same(24, flow.at("periodicTransmittance"));
    same(25, flow.at("periodicTransmittanceLag"));
    same(26, flow.at("decrementFactor"));
    same(27, flow.at("insideHeatCapacity"));
    same(28, flow.at("outsideHeatCapacity"));
    same(29, flow.at("surfaceFactor"));
    same(30, flow.at("surfaceFactorLag"));
}

TEST_F(ThermalCommand, ShowJsonHasTheSameFiguresWhereAsked) {
    const json shown = FirstConstruction(RunTool({"show", "--json", "--thermal", "wall.con"}));
    json figures = FirstConstruction(RunTool({"thermal", "--json", "wall.con"}));
    for (const char* own : {"number", "name", "type"})
        figures.erase(own);
    EXPECT_EQ(shown.at("x-thermal"), figures);
    EXPECT_FALSE(FirstConstruction(RunTool({"show", "--json", "wall.con"})).contains("x-thermal"));
}

TEST_F(ThermalCommand, EndsAsShowDoesForAFileThatCannotBeRead) {
    EXPECT_EQ(RunTool({"thermal", "absent.con", "wall.con"}).status, 3);
    const RunResult result = RunTool({"thermal", "absent.con", "wall.con", "--json"});
    EXPECT_EQ(result.status, 3);
    EXPECT_EQ(Document(result).size(), 2U);
}

} // namespace
} // namespace strativo
