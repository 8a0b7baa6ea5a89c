#include "cli/CommandRun.h"

#include <algorithm>
#include <gmock/gmock.h>

namespace strativo {
namespace {

using nlohmann::json;
using testing::ElementsAre;

/// Three materials whose order differs by every key, and two that differ only in their name.
constexpr char library[] = "12'FACE BRICK' 0.84 1700 800\r\n"
                           "7'Oak' 0.17 704 1630\r\n"
                           "30'STEEL' 50 7800 450\r\n"
                           "9'TWIN B' 0.5 1000 1000\r\n"
                           "8'TWIN A' 0.5 1000 1000\r\n";

class Materials : public CliTest {
protected:
    Materials() {
        folder.Write("std.lby", library);
        folder.Write("user.lby", userLibraryBytes);
    }

    /// The first word of each name, without cavities; B and A for the twins.
    static std::vector<std::string> Order(const std::string& key) {
        const RunResult result = RunTool({"materials", "--json", "--sort", key, "std.lby"});
        EXPECT_EQ(result.status, 0);
        std::vector<std::string> names;
        int slot = 0;
        const json document = Document(result);
        for (const auto& material : document["materials"]) {
            EXPECT_EQ(material["slot"], ++slot);
            if (material["code"] > 0)
                names.push_back(material["name"]);
        }
        return names;
    }
};

TEST_F(Materials, ListsTheLibraryByNameAsTheDialogDoes) {
    const RunResult result = RunTool({"materials", "std.lby"});
    EXPECT_EQ(result.status, 0);
    EXPECT_EQ(result.err, "");
    EXPECT_EQ(result.out, "CAVITY Type 1 NORMAL                  n/a                    \n"
                          "CAVITY Type 11 ISO15099               n/a                    \n"
                          "CAVITY Type 2 Low-E                   n/a                    \n"
                          "CAVITY Type 3 width = resistance      n/a                    \n"
                          "CAVITY Type 5 Normal Ventilated       n/a                    \n"
                          "CAVITY Type 6 Low-e Ventilated        n/a                    \n"
                          "FACE BRICK                          0.840      1700       800\n"
                          "OAK                                 0.170       704      1630\n"
                          "STEEL                                50.0      7800       450\n"
                          "TWIN A                              0.500      1000      1000\n"
                          "TWIN B                              0.500      1000      1000\n");
    EXPECT_EQ(RunTool({"materials", "--sort", "name", "std.lby"}).out, result.out);
}

TEST_F(Materials, SortsByEachKey) {
    EXPECT_THAT(Order("name"), ElementsAre("FACE BRICK", "OAK", "STEEL", "TWIN A", "TWIN B"));
    EXPECT_THAT(Order("conductivity"),
                ElementsAre("OAK", "TWIN A", "TWIN B", "FACE BRICK", "STEEL"));
    EXPECT_THAT(Order("density"), ElementsAre("OAK", "TWIN A", "TWIN B", "FACE BRICK", "STEEL"));
    EXPECT_THAT(Order("specific-heat"),
                ElementsAre("STEEL", "FACE BRICK", "TWIN A", "TWIN B", "OAK"));
    EXPECT_THAT(Order("file"), ElementsAre("FACE BRICK", "OAK", "STEEL", "TWIN B", "TWIN A"));
}

TEST_F(Materials, AsStoredTheCavitiesFollowTheMaterials) {
    const json materials =
        Document(RunTool({"materials", "--json", "--sort", "file", "std.lby"}))["materials"];
    ASSERT_EQ(materials.size(), 11);
    std::vector<double> codes;
    for (const auto& material : materials)
        codes.push_back(material["code"]);
    EXPECT_THAT(codes, ElementsAre(12, 7, 30, 9, 8, -3, -2, -1, -5, -6, -11));
}

TEST_F(Materials, JsonHoldsFileMessagesAndMaterials) {
    const RunResult result = RunTool({"materials", "--user", "--json", "user.lby"});
    EXPECT_EQ(result.status, 0);
    EXPECT_EQ(Document(result), json::parse(R"(
        {"file": "user.lby", "messages": [], "ended": false, "loaded": true, "materials": [
          {"slot": 1, "code": 15.0, "name": "CORK", "conductivity": 0.045, "density": 150.0,
           "specificHeat": 1880.0,
           "line": "CORK                                0.045       150      1880"},
          {"slot": 2, "code": 12.0, "name": "HEMP", "conductivity": 0.04, "density": 40.0,
           "specificHeat": 1600.0,
           "line": "HEMP                                0.040        40      1600"}]})"));
}

TEST_F(Materials, AUserLibraryHasNoCavities) {
    EXPECT_EQ(RunTool({"materials", "--user", "user.lby"}).out,
              "CORK                                0.045       150      1880\n"
              "HEMP                                0.040        40      1600\n");
}

TEST_F(Materials, DecodesNamesAsWindows1252) {
    folder.Write("std.lby", "1'M\xDCLL' 0.5 10 20\r\n");
    EXPECT_THAT(RunTool({"materials", "std.lby"}).out,
                testing::HasSubstr("\nM\u00DCLL                                0.500        10"));
    EXPECT_EQ(Document(RunTool({"materials", "--json", "std.lby"}))["materials"][6]["name"],
              "M\u00DCLL");
}

TEST_F(Materials, AMissingLibraryEndsTheProgram) {
    const RunResult result = RunTool({"materials", "--json", "gone.lby"});
    EXPECT_EQ(result.status, 3);
    const json document = Document(result);
    EXPECT_THAT(Messages(document),
                ElementsAre("Standard material file is missing.", "Cancel pressed aborting load"));
    EXPECT_EQ(document["ended"], true);
    EXPECT_EQ(document["loaded"], false);
    EXPECT_EQ(document["materials"], json::array());
    EXPECT_EQ(RunTool({"materials", "gone.lby"}).out, "");
}

TEST_F(Materials, AMissingUserLibraryEndsAfterTheSecondCancel) {
    const RunResult result = RunTool({"materials", "--user", "--json", "gone.lby"});
    EXPECT_EQ(result.status, 3);
    const json document = Document(result);
    EXPECT_THAT(Messages(document),
                ElementsAre("User material file is missing.", "User material file is missing."));
    EXPECT_EQ(document["ended"], true);
    EXPECT_EQ(document["loaded"], false);
}

TEST_F(Materials, OptionsAnswerThePromptForAnotherLibrary) {
    const RunResult standard = RunTool({"materials", "gone.lby", "--standard", "std.lby"});
    EXPECT_EQ(standard.status, 0);
    EXPECT_EQ(standard.err, "strativo-cli: gone.lby: Standard material file is missing.\n");
    EXPECT_EQ(standard.out, RunTool({"materials", "std.lby"}).out);
    const RunResult user =
        RunTool({"materials", "--user", "gone.lby", "--user-library", "user.lby"});
    EXPECT_EQ(user.status, 0);
    EXPECT_EQ(user.err, "strativo-cli: gone.lby: User material file is missing.\n");
    EXPECT_EQ(user.out, RunTool({"materials", "--user", "user.lby"}).out);
}

TEST_F(Materials, AWrongVersionCountsAsLoadedButNotAsRead) {
    folder.Write("wrong.lby", "no record\r\n");
    const RunResult result = RunTool({"materials", "--json", "wrong.lby"});
    EXPECT_EQ(result.status, 3);
    const json document = Document(result);
    EXPECT_THAT(Messages(document), ElementsAre("Standard material file is incorrect version"));
    EXPECT_EQ(document["ended"], false);
    EXPECT_EQ(document["loaded"], true);
    EXPECT_EQ(document["materials"].size(), 6);
}

TEST_F(Materials, AUserLibraryOfAWrongVersionIsNotLoaded) {
    folder.Write("wrong.lby", "no record\r\n");
    const json document = Document(RunTool({"materials", "--user", "--json", "wrong.lby"}));
    EXPECT_THAT(Messages(document), ElementsAre("User material file is incorrect version"));
    EXPECT_EQ(document["loaded"], false);
    EXPECT_EQ(document["materials"], json::array());
}

TEST_F(Materials, TooManyAreAnErrorWithoutAPromptAndListedAsFarAsTheyGo) {
    std::string many;
    for (int i = 1; i <= 94; ++i)
        many += std::to_string(i) + "'M' 1 2 3\r\n";
    folder.Write("many.lby", many);
    const RunResult result = RunTool({"materials", "many.lby", "--standard", "std.lby"});
    EXPECT_EQ(result.status, 3);
    EXPECT_EQ(std::count(result.out.begin(), result.out.end(), '\n'), 100);
    EXPECT_EQ(result.err, "strativo-cli: many.lby: Standard material file error 9 occurred.\n");
}

} // namespace
} // namespace strativo
