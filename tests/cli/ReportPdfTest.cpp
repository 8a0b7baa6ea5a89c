#include "cli/CommandRun.h"

#include <cstdlib>
#include <gmock/gmock.h>

namespace strativo {
namespace {

using testing::HasSubstr;

bool IsInstalled(const std::string& program) {
    return std::system(("command -v " + program + " > which.txt 2>&1").c_str()) == 0;
}

/// The report as paper: printed by a browser without a window, its text read back page by page.
class ReportPdf : public CliTest {
protected:
    void SetUp() override {
        for (const char* program : {"chromium", "pdftotext"})
            if (!IsInstalled(program))
                GTEST_SKIP() << program << " is not installed";
    }

    /// The texts of the pages, in the order of the lines on them.
    std::vector<std::string> Print(const std::string& html) {
        folder.Write("report.html", html);
        const std::string print =
            "timeout 120 chromium --headless --no-sandbox --disable-gpu --no-first-run "
            "--user-data-dir=browser --no-pdf-header-footer --print-to-pdf=report.pdf report.html "
            "> browser.txt 2>&1";
        EXPECT_EQ(std::system(print.c_str()), 0) << folder.Read("browser.txt");
        EXPECT_EQ(std::system("pdftotext -layout report.pdf report.txt"), 0);
        std::vector<std::string> pages;
        std::string text = folder.Read("report.txt");
        for (auto end = text.find('\f'); end != std::string::npos; end = text.find('\f')) {
            pages.push_back(text.substr(0, end));
            text.erase(0, end + 1);
        }
        return pages;
    }

    static std::vector<std::string> PagesWith(const std::vector<std::string>& pages,
                                              const std::string& text) {
        std::vector<std::string> found;
        std::copy_if(pages.begin(), pages.end(), std::back_inserter(found),
                     [&](const std::string& page) { return page.find(text) != std::string::npos; });
        return found;
    }
};

TEST_F(ReportPdf, OfTheHouseHasEverythingOnItsPages) {
    const std::string house = std::string(STRATIVO_SOURCE) + "/data/examples/house.con";
    const std::vector<std::string> pages = Print(RunTool({"report", house}).out);
    ASSERT_GT(pages.size(), 10U);
    for (std::size_t i = 0; i < pages.size(); ++i) {
        EXPECT_THAT(pages[i], HasSubstr("Page " + std::to_string(i + 1) + " of "
                                        + std::to_string(pages.size())));
        EXPECT_THAT(pages[i], HasSubstr("house.con"));
        EXPECT_THAT(pages[i], HasSubstr("Strativo 2.1.0"));
    }
    for (const char* text :
         {"Overview", "External wall, cavity", "Conservatory, single glazing", "CLEAR 6MM",
          "DOUBLE LOW-E SURF3 4-16-4 OVERHANG", "Standard library", "User library"})
        EXPECT_THAT(pages[0], HasSubstr(text));
    const auto tornGlass = PagesWith(pages, "Two-dimensional glass type 1");
    ASSERT_EQ(tornGlass.size(), 1U);
    EXPECT_THAT(tornGlass[0], HasSubstr("19 rows of 19 values"));
}

TEST_F(ReportPdf, OfTheHouseHasEachConstructionOnOnePage) {
    const std::string house = std::string(STRATIVO_SOURCE) + "/data/examples/house.con";
    const std::vector<std::string> pages = Print(RunTool({"report", house}).out);
    const auto wall = PagesWith(pages, "1. External wall, cavity");
    ASSERT_EQ(wall.size(), 1U);
    for (const char* text :
         {"living rooms, ground floor", "340.0 mm", "3.695 m", "Outside air 0.0", "Inside air 20.0",
          "fRsi 0.966", "PIR FOAM 30", "Rsi inside", "Rse outside", "3.865", "Time lag", "8.7",
          "Decrement factor f", "0.438"})
        EXPECT_THAT(wall[0], HasSubstr(text));
    for (const char* name : {"2. External wall, solid brick", "7. Garage roof", "11. Party wall"}) {
        const auto page = PagesWith(pages, name);
        ASSERT_EQ(page.size(), 1U) << name;
        EXPECT_THAT(page[0], HasSubstr("Surface factor F")) << "torn: " << name;
    }
    const auto glass = PagesWith(pages, "Glass type 1: CLEAR 6MM");
    ASSERT_EQ(glass.size(), 1U);
    EXPECT_THAT(glass[0], HasSubstr("diffuse"));
    EXPECT_THAT(glass[0], HasSubstr("0.696"));
}

TEST_F(ReportPdf, KeepsWordsWholeBesideLongNames) {
    std::vector<std::string> lines = {standardLine};
    for (const char* type : {"!TYPE OPAQUE", "!TYPE TRANSPARENT"})
        lines.insert(lines.end(), {"!CONSTRUCTION '" + std::string(120, 'A') + "'", type, "!PARTS",
                                   brickPart, "!END"});
    folder.Write("std.lby", "12'FACE BRICK' 0.84 1700 800\r\n");
    folder.Write("long.con", Lines(lines));
    const std::vector<std::string> pages = Print(RunTool({"report", "long.con"}).out);
    ASSERT_GT(pages.size(), 1U);
    for (const char* word : {"Type", "opaque", "transparent", "U-value", "Indicative U"})
        EXPECT_THAT(pages[0], HasSubstr(word));
    const auto findings = PagesWith(pages, "Severity");
    ASSERT_EQ(findings.size(), 1U);
    EXPECT_THAT(findings[0], HasSubstr("warning"));
}

TEST_F(ReportPdf, TearsAConstructionOnlyWhereItIsLongerThanAPage) {
    std::vector<std::string> lines = {standardLine, "!CONSTRUCTION 'Short'", "!PARTS", brickPart,
                                      "!END",       "!CONSTRUCTION 'Long'"};
    for (int line = 1; line <= 100; ++line)
        lines.push_back("!TYPE OPAQUE * comment line " + std::to_string(line));
    lines.insert(lines.end(), {"!PARTS", brickPart, "!END"});
    folder.Write("std.lby", "12'FACE BRICK' 0.84 1700 800\r\n");
    folder.Write("long.con", Lines(lines));
    const std::vector<std::string> pages = Print(RunTool({"report", "long.con"}).out);
    const auto shortPage = PagesWith(pages, "1. Short");
    ASSERT_EQ(shortPage.size(), 1U);
    EXPECT_THAT(shortPage[0], HasSubstr("Surface factor F"));
    EXPECT_EQ(PagesWith(pages, "comment line").size(), 2U);
    const auto end = PagesWith(pages, "comment line 100");
    ASSERT_EQ(end.size(), 1U);
    EXPECT_THAT(end[0], testing::Not(HasSubstr("2. Long")));
}

} // namespace
} // namespace strativo
