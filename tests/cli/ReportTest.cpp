#include "cli/CommandRun.h"

#include <filesystem>
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
    EXPECT_THAT(result.out, HasSubstr("Indicative U-value</dt><dd>3.28 ")); // 1 / (0.125 + 0.18)
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
    EXPECT_THAT(result.out, Not(HasSubstr("<tr><td>1</td><td class=\"text\"><span")));
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

TEST_F(ReportCommand, WritesToStandardOutputByItsName) {
    folder.Write("-", "a file of that name");
    EXPECT_EQ(RunTool({"report", "wall.con", "-o", "-"}).out, RunTool({"report", "wall.con"}).out);
    EXPECT_EQ(folder.Read("-"), "a file of that name");
}

TEST_F(ReportCommand, ReplacesNoFileThatItReads) {
    folder.Write("user.lby", userLibraryBytes);
    folder.Write("other.lby", standardLibraryBytes);
    folder.Write("both.con", WallFile({standardLine, userLine}, {hempPart}));
    std::filesystem::create_hard_link("both.con", "hard.con");
    std::filesystem::create_symlink("std.lby", "soft.lby");
    for (const std::string output :
         {"both.con", "./both.con", "hard.con", "std.lby", "soft.lby", "user.lby", "other.lby"}) {
        const std::string before = folder.Read(output);
        const RunResult result =
            RunTool({"report", "--standard", "other.lby", "both.con", "-o", output});
        EXPECT_EQ(result.status, 2) << output;
        EXPECT_THAT(result.err, HasSubstr(output + " is one of the files that are read"));
        EXPECT_EQ(folder.Read(output), before) << output;
    }
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
    EXPECT_THAT(RunTool({"report", "zero.con"}).out, HasSubstr(">zero-thickness<"));
}

TEST_F(ReportCommand, StartsWithAnOverviewOfTheConstructions) {
    const RunResult result = RunTool({"report", "wall.con"});
    // R 0.105 / 0.84; U 1 / (0.04 + 0.125 + 0.13)
    EXPECT_THAT(result.out, HasSubstr("<tr><td>1</td><td class=\"text\"><a "
                                      "href=\"#construction-1\">Wall</a></td><td class=\"word\">"
                                      "opaque</td><td>105.0</td><td>0.125</td><td>3.390</td>"
                                      "<td>3.28</td></tr>"));
    EXPECT_LT(result.out.find(">Overview<"), result.out.find("<h2><span class=\"kind\">Opaque"));
}

TEST_F(ReportCommand, SaysThatAFileHasNoConstructions) {
    folder.Write("empty.con", Lines({standardLine}));
    const RunResult result = RunTool({"report", "empty.con"});
    EXPECT_THAT(result.out, HasSubstr("<p>The file has no constructions.</p>"));
    EXPECT_THAT(result.out, Not(HasSubstr("<th class=\"text\">Construction</th>")));
}

TEST_F(ReportCommand, SaysWhichSurfaceResistanceIsWhich) {
    const RunResult result = RunTool({"report", "wall.con", "--flow", "up"});
    EXPECT_THAT(result.out, HasSubstr("surface resistances R<sub>si</sub> 0.10 m&sup2;K/W inside "
                                      "and R<sub>se</sub> 0.04 m&sup2;K/W outside"));
    EXPECT_THAT(result.out, HasSubstr("always with 0.12 inside and 0.06 outside"));
    EXPECT_THAT(result.out, HasSubstr("<tr class=\"chosen\"><th class=\"text\">upward</th>"
                                      "<td>0.10</td><td>0.04</td><td>0.265</td><td>3.774</td>"));
    EXPECT_THAT(result.out, HasSubstr("In the drawing: heat flow upward, inside 20.0&nbsp;&deg;C"));
}

TEST_F(ReportCommand, FollowsTemperaturesFilmsSideAndFlows) {
    const RunResult result = RunTool({"report", "wall.con", "--inside", "24", "--outside", "-12",
                                      "--rsi", "0.25", "--first-layer", "inside", "--flow", "all"});
    EXPECT_EQ(result.status, 0);
    EXPECT_THAT(result.out, HasSubstr("inside 24.0&nbsp;&deg;C, outside -12.0&nbsp;&deg;C"));
    EXPECT_THAT(result.out, HasSubstr("<td>0.25</td><td>0.04</td><td>0.415</td><td>2.410</td>"));
    EXPECT_THAT(result.out, HasSubstr("Layer 1 is the innermost one"));
    EXPECT_THAT(result.out,
                HasSubstr("<th>horizontal</th><th>upward</th><th>downward</th></tr></thead>"));
}

TEST_F(ReportCommand, ShowsCommentsOfFileConstructionsAndGlassTypes) {
    folder.Write("a.con", Lines({"Head * about <the file>", standardLine,
                                 "!CONSTRUCTION 'Wall' * about the wall", "!PARTS", brickPart,
                                 "!END", "!WINDOW = 'G' * about the glass", "!END",
                                 "!WINDOW 2D = 'T' * about both", "!END"}));
    const RunResult result = RunTool({"report", "a.con"});
    for (const char* text : {" about &lt;the file&gt;</p>", " about the wall</p>",
                             " about the glass</p>", " about both</p>"})
        EXPECT_THAT(result.out, HasSubstr(text));
}

TEST_F(ReportCommand, NamesTwoDimensionalGlassTypes) {
    const RunResult house =
        RunTool({"report", std::string(STRATIVO_SOURCE) + "/data/examples/house.con"});
    EXPECT_THAT(house.out,
                HasSubstr("Two-dimensional glass type 1: DOUBLE LOW-E SURF3 4-16-4 OVERHANG"));
}

TEST_F(ReportCommand, SaysWhyThereAreNoThermalFigures) {
    folder.Write("a.con", WallFile({standardLine}, {}));
    EXPECT_THAT(RunTool({"report", "a.con"}).out,
                HasSubstr("Thermal characteristics are not available: no layers."));
    folder.Write("b.con",
                 WallFile({standardLine}, {"_ 1 =       12      0.000      0            * B"}));
    EXPECT_THAT(RunTool({"report", "b.con"}).out,
                HasSubstr("Not available: layer 1: zero thickness"));
}

TEST_F(ReportCommand, ACavityOfUnknownWidthIsNamedBesideTheThickness) {
    folder.Write("a.con", WallFile({standardLine},
                                   {brickPart, "_ 2 =       -3      0.000160      0     * x"}));
    EXPECT_THAT(RunTool({"report", "a.con"}).out, HasSubstr("<td>105.0 + cavity</td>"));
}

TEST_F(ReportCommand, HasFileDateAndProgramAtTheEdgesOfItsPages) {
    setenv("SOURCE_DATE_EPOCH", "1795257600", 1);
    const RunResult result = RunTool({"report", "wall.con"});
    unsetenv("SOURCE_DATE_EPOCH");
    EXPECT_THAT(result.out, HasSubstr("@top-left { content: \"wall\\2e con\""));
    EXPECT_THAT(result.out, HasSubstr("@top-right { content: \"21\\20 November\\20 2026\""));
    EXPECT_THAT(result.out, HasSubstr("@bottom-left { content: \"Strativo\\20 2\\2e 1\\2e 0\""));
    EXPECT_THAT(result.out, HasSubstr("counter(page) \" of \" counter(pages)"));
    EXPECT_THAT(result.out,
                HasSubstr("<td>" + (folder.Path() / "wall.con").string() + "</td></tr>"));
}

TEST_F(ReportCommand, IsOfTodayWhereTheGivenDateIsNoNumber) {
    const std::string today = RunTool({"report", "wall.con"}).out;
    for (const char* const seconds : {"", "today", "86400x", "99999999999999999999"}) {
        setenv("SOURCE_DATE_EPOCH", seconds, 1);
        EXPECT_TRUE(RunTool({"report", "wall.con"}).out == today) << seconds;
    }
    unsetenv("SOURCE_DATE_EPOCH");
}

TEST_F(ReportCommand, AFileNameCannotEndTheStyleSheet) {
    folder.Write("a\";} <script>.con", WallFile({standardLine}, {brickPart}));
    const RunResult result = RunTool({"report", "a\";} <script>.con"});
    EXPECT_EQ(result.status, 0);
    EXPECT_THAT(result.out, Not(HasSubstr("<script>")));
    EXPECT_THAT(result.out,
                HasSubstr("content: \"a\\22 \\3b \\7d \\20 \\3c script\\3e \\2e con\""));
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
