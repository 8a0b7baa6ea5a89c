#include "cli/CommandRun.h"

namespace strativo {
namespace {

class Show : public CliTest {
protected:
    Show() { folder.Write("std.lby", standardLibraryBytes); }
};

TEST_F(Show, PrintsConstructionsAsTheirWindowsShowThemThenTheGlassTypes) {
    folder.Write(
        "a.con",
        Lines({standardLine, "!CONSTRUCTION 'Cavity wall'", "!TYPE OPAQUE", "!PARTS", brickPart,
               "_ 2 =       -1      0.050      0            * x", "!END", "!WINDOW = 'CLEAR 6MM'",
               "!TRANSMISSION =", "0.692, 0.775, 0.7, 0.7, 0.7, 0.7, 0.7, 0.6, 0.5, 0.3, 0.0",
               "!ABSORPTION =", "0.172, 0.155, 0.1, 0.1, 0.1, 0.1, 0.1, 0.1, 0.1, 0.1, 0.0",
               "!END"}));
    const RunResult result = RunTool({"show", "a.con"});
    EXPECT_EQ(result.status, 0);
    EXPECT_EQ(result.err, "");
    // 1 / (0.125 + 0.11 + 0.06 + 0.12)
    EXPECT_EQ(result.out, "Construction 1  Cavity wall  (Opaque)\n"
                          "  FACE BRICK                             0.1250      105\n"
                          "  CAVITY Type 1 NORMAL                   0.1100       50\n"
                          "  Indicative Uvalue W/Cm2  2.41\n"
                          "\n"
                          "Glass type 1  CLEAR 6MM  transmission 0.775 (diffuse 0.692)  "
                          "absorption 0.155 (diffuse 0.172)\n");
}

TEST_F(Show, SaysTransparent) {
    folder.Write("a.con",
                 Lines({standardLine, "!CONSTRUCTION 'Glazing'", "!TYPE TRANSPARENT", "!PARTS",
                        "_ 1 =       7      0.004      0      0.12      * x", "!END"}));
    // 0.004 / 160 is 0.000025: 0.0000 in the list, and 1 / 0.180025 as the U-value
    EXPECT_EQ(RunTool({"show", "a.con"}).out,
              "Construction 1  Glazing  (Transparent)\n"
              "  ALUMINIUM                              0.0000        4\n"
              "  Indicative Uvalue W/Cm2  5.55\n");
}

TEST_F(Show, PutsABlankLineBetweenConstructionsAndBetweenFiles) {
    folder.Write("two.con",
                 Lines({standardLine, "!CONSTRUCTION 'A'", "!END", "!CONSTRUCTION 'B'", "!END"}));
    folder.Write("glass.con",
                 Lines({standardLine, "!WINDOW = 'G'", "!END", "!WINDOW = 'H'", "!END"}));
    const std::string none = "  Indicative Uvalue W/Cm2  n/a\n";
    const std::string zeros = "  transmission 0.000 (diffuse 0.000)  "
                              "absorption 0.000 (diffuse 0.000)\n";
    const RunResult result = RunTool({"show", "two.con", "glass.con", "two.con"});
    EXPECT_EQ(result.status, 0);
    const std::string two =
        "Construction 1  A  (Opaque)\n" + none + "\n" + "Construction 2  B  (Opaque)\n" + none;
    EXPECT_EQ(result.out,
              two + "\nGlass type 1  G" + zeros + "Glass type 2  H" + zeros + "\n" + two);
}

TEST_F(Show, DecodesNamesAsWindows1252AndShowsControlCharactersByNumber) {
    folder.Write("a.con", Lines({standardLine, "!CONSTRUCTION 'W\xE4rme \x80 \x81'", "!END"}));
    EXPECT_EQ(RunTool({"show", "a.con"}).out,
              "Construction 1  W\u00E4rme \u20AC \\u0081  (Opaque)\n"
              "  Indicative Uvalue W/Cm2  n/a\n");
}

TEST_F(Show, ShowsWhatWasReadBeforeAFailure) {
    folder.Write("a.con", WallFile({"_ 1 = 12"})); // without a blank after the number
    const RunResult result = RunTool({"show", "a.con"});
    EXPECT_EQ(result.status, 3);
    EXPECT_EQ(result.out, "Construction 1  Wall  (Opaque)\n  Indicative Uvalue W/Cm2  n/a\n");
    EXPECT_EQ(result.err, "strativo-cli: a.con: Command line error "
                          "Construction file (p) is incorrect version\n");
}

TEST_F(Show, GoesOnWithTheNextFileAfterTheEndOfTheProgram) {
    folder.Write("bad.con", WallFile({"!MATERIALS FILE = 'gone.lby'"}, {brickPart}));
    folder.Write("good.con", WallFile({}));
    const RunResult result = RunTool({"show", "bad.con", "good.con"});
    EXPECT_EQ(result.status, 3);
    EXPECT_EQ(result.out, "Construction 1  Wall  (Opaque)\n  Indicative Uvalue W/Cm2  n/a\n");
    EXPECT_EQ(result.err, "strativo-cli: bad.con: Standard material file is missing.\n"
                          "strativo-cli: bad.con: Cancel pressed aborting load\n");
}

TEST_F(Show, HouseAgreesWithItsGoldenText) {
    const RunResult result =
        RunTool({"show", std::string(STRATIVO_SOURCE) + "/data/examples/house.con"});
    EXPECT_EQ(result.status, 0);
    EXPECT_EQ(result.err, "");
    EXPECT_EQ(result.out, SourceFile("tests/golden/cli/house.txt"));
}

} // namespace
} // namespace strativo
