#include "cli/CommandRun.h"

#include <gmock/gmock.h>

namespace strativo {
namespace {

using testing::HasSubstr;
using testing::Not;

class ReportCommand : public CliTest {
protected:
    ReportCommand() {
        folder.Write("std.lby", "12'FACE BRICK' 0.84 1700 800\r\n");
        folder.Write("wall.con", WallFile({standardLine}, {brickPart}));
    }
};

TEST_F(ReportCommand, ShowsLayersSumsAndTheUValue) {
    const RunResult result = RunTool({"report", "wall.con"});
    EXPECT_EQ(result.status, 0);
    EXPECT_EQ(result.err, "");
    EXPECT_THAT(result.out, HasSubstr("FACE BRICK"));
    EXPECT_THAT(result.out, HasSubstr("<td>105.0</td><td>0.840</td><td>0.125</td>"));
    // 0.105 m of 1700 kg/m3 and 800 J/kg C
    EXPECT_THAT(result.out, HasSubstr("<td>178.5</td><td>142.8</td>"));
    EXPECT_THAT(result.out, HasSubstr("Indicative U-value <b>3.28</b>")); // 1 / (0.125 + 0.18)
    EXPECT_THAT(result.out, HasSubstr("<svg class=\"section\""));
    EXPECT_THAT(result.out, HasSubstr("None."));
}

TEST_F(ReportCommand, ShowsEveryLayerBesideOneOfAMaterialWithoutAName) {
    folder.Write("std.lby", "12'FACE BRICK' 0.84 1700 800\r\n13'' 0.5 1000 900\r\n");
    folder.Write(
        "gap.con",
        WallFile({standardLine}, {"_ 1 =       13      0.010      0            * ", brickPart}));
    const RunResult result = RunTool({"report", "gap.con"});
    EXPECT_THAT(result.out, HasSubstr("<tr><td>2</td>"));
    EXPECT_THAT(result.out, HasSubstr("FACE BRICK</td><td>105.0</td>"));
    EXPECT_THAT(result.out, HasSubstr("<td>178.5</td><td>142.8</td></tr></tfoot>"));
    EXPECT_THAT(result.out, HasSubstr("text-anchor=\"middle\">2</text>")) << "in the drawing";
    EXPECT_THAT(result.out, Not(HasSubstr("<tr><td>1</td>")));
}

TEST_F(ReportCommand, ShowsTextsFromFilesWithoutRunningThem) {
    folder.Write("script.con", standardLine
                                   + "\r\n!CONSTRUCTION '<script>alert(1)</script> & \"x\"'"
                                     "\r\n!PARTS\r\n"
                                   + brickPart + "\r\n!END\r\n");
    const RunResult result = RunTool({"report", "script.con"});
    EXPECT_THAT(result.out, Not(HasSubstr("<script>")));
    EXPECT_THAT(result.out, HasSubstr("&lt;script&gt;alert(1)&lt;/script&gt; &amp; &quot;x&quot;"));
}

TEST_F(ReportCommand, SumsBeyondAllNumbersAreNotAvailable) {
    folder.Write("std.lby", "12'FACE BRICK' 0.84 1e308 800\r\n");
    const RunResult result = RunTool({"report", "wall.con"});
    EXPECT_THAT(result.out, HasSubstr("<td>n/a</td></tr></tfoot>"));
    EXPECT_THAT(result.out, Not(HasSubstr("i.o")));
}

TEST_F(ReportCommand, WritesTheFileThatOutputNames) {
    const RunResult result = RunTool({"report", "wall.con", "-o", "wall.html"});
    EXPECT_EQ(result.status, 0);
    EXPECT_EQ(result.out, "");
    EXPECT_EQ(folder.Read("wall.html"), RunTool({"report", "wall.con"}).out);
}

TEST_F(ReportCommand, SaysWhyTheFileCouldNotBeWritten) {
    const RunResult result = RunTool({"report", "wall.con", "--output", "missing/wall.html"});
    EXPECT_EQ(result.status, 3);
    EXPECT_THAT(result.err, HasSubstr("missing/wall.html: No such file or directory"));
}

TEST_F(ReportCommand, WritesNothingForAFileThatCannotBeRead) {
    const RunResult result = RunTool({"report", "absent.con", "-o", "absent.html"});
    EXPECT_EQ(result.status, 3);
    EXPECT_FALSE(std::filesystem::exists("absent.html"));
}

TEST_F(ReportCommand, DrawsGlassTypesAndListsFindings) {
    std::filesystem::current_path(STRATIVO_SOURCE "/data/examples");
    const RunResult house = RunTool({"report", "house.con"});
    EXPECT_EQ(house.status, 0);
    EXPECT_THAT(house.out, HasSubstr("Glass type 1: CLEAR 6MM"));
    EXPECT_THAT(house.out, HasSubstr("<svg class=\"curve\""));
    std::filesystem::current_path(folder.Path());
    folder.Write("zero.con",
                 WallFile({standardLine}, {"_ 1 =       12      0.000      0            * B"}));
    EXPECT_THAT(RunTool({"report", "zero.con"}).out, HasSubstr("(zero-thickness)"));
}

TEST_F(ReportCommand, CsvHasARowPerLayerAndQuotesTexts) {
    folder.Write("quoted.con", standardLine
                                   + "\r\n!CONSTRUCTION 'A, \"B\"'\r\n!TYPE OPAQUE\r\n"
                                     "!PARTS\r\n"
                                   + brickPart + "\r\n!END\r\n");
    const RunResult result = RunTool({"show", "--csv", "quoted.con"});
    EXPECT_EQ(result.status, 0);
    EXPECT_EQ(result.out,
              "file,construction,name,type,u_value,slot,layer,library,material_code,thickness_mm,"
              "conductivity,density,specific_heat,absorption,resistance\r\n"
              "quoted.con,1,\"A, \"\"B\"\"\",0,3.28,1,FACE BRICK,1,12,105,0.84,1700,800,0,0.125"
              "\r\n");
}

} // namespace
} // namespace strativo
