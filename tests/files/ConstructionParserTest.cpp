#include "support/ParseText.h"
#include "support/TestProject.h"
#include "text/RuntimeError.h"

#include <gtest/gtest.h>

namespace strativo {
namespace {

class ConstructionParser : public testing::Test {
protected:
    ParsedFile Parse(std::string_view text) { return ParseText(text, project); }

    int Failure(std::string_view text) {
        try {
            Parse(text);
            return 0;
        } catch (const RuntimeError& error) {
            return static_cast<int>(error.Number());
        }
    }

    const Construction& First() { return project.constructions[1]; }

    Project project;
};

TEST_F(ConstructionParser, ReadsAConstruction) {
    const ParsedFile parsed = Parse("!CONSTRUCTION 'Wall'\r\n!TYPE OPAQUE\r\n!PARTS\r\n"
                                    "_ 1 =       12      0.100      0            * FACE BRICK\r\n"
                                    "_ 2 =       30      0.013      0            * PLASTER\r\n"
                                    "!END\r\n\r\n");
    EXPECT_EQ(parsed.lastConstruction, 1);
    EXPECT_FALSE(parsed.standardLineSeen);
    EXPECT_FALSE(parsed.userLineSeen);
    EXPECT_FALSE(parsed.formatBad);
    EXPECT_EQ(First().name, "Wall");
    EXPECT_EQ(First().type, opaqueType);
    EXPECT_EQ(LayerNames(project, 1), "12");
    EXPECT_EQ(First().currentLayer, 2);
    EXPECT_TRUE(InUse(project, 1));
}

TEST_F(ConstructionParser, ReadsLinesWithAnyBlanksAndLineEnds) {
    Parse("\t !CONSTRUCTION\t'A \tB'\n\r\x1a  _ 1 =\t12\t0.100\t0\n!END");
    EXPECT_EQ(First().name, "A  B") << "a tab is a blank, inside a name too";
    EXPECT_EQ(First().layers[1].materialCode, 12);
    EXPECT_DOUBLE_EQ(First().layers[1].thickness, 100);
}

TEST_F(ConstructionParser, StoresTheLibraryNames) {
    const ParsedFile parsed = Parse("!MATERIALS FILE = '..\\std \xe9.lby'\n"
                                    "!MATERIALS USER FILE = 'user.lby'\n");
    EXPECT_TRUE(parsed.standardLineSeen);
    EXPECT_TRUE(parsed.userLineSeen);
    EXPECT_EQ(parsed.lastConstruction, 0);
    EXPECT_EQ(project.standardLibraryFile, "..\\std \xe9.lby");
    EXPECT_EQ(project.userLibraryFile, "user.lby");
}

TEST_F(ConstructionParser, LeavesLibraryNamesUnchangedByAnEmptyPairOfApostrophes) {
    project.standardLibraryFile = "std.lby";
    project.userLibraryFile = "user.lby";
    const ParsedFile parsed = Parse("!MATERIALS FILE = ''\n!MATERIALS USER FILE = ''\n");
    EXPECT_TRUE(parsed.standardLineSeen);
    EXPECT_TRUE(parsed.userLineSeen);
    EXPECT_EQ(project.standardLibraryFile, "std.lby");
    EXPECT_EQ(project.userLibraryFile, "user.lby");
}

TEST_F(ConstructionParser, TakesAnEmptyNameWhereACharacterFollowsIt) {
    project.standardLibraryFile = "std.lby";
    Parse("!MATERIALS FILE = '' ");
    EXPECT_EQ(project.standardLibraryFile, "");
}

TEST_F(ConstructionParser, LeavesAConstructionWithAnEmptyNameNameless) {
    Parse("!CONSTRUCTION ''\n!END\n!CONSTRUCTION '");
    EXPECT_EQ(project.constructions[1].name, "");
    EXPECT_EQ(project.constructions[2].name, "");
}

TEST_F(ConstructionParser, MakesATransparentConstruction) {
    Parse("!CONSTRUCTION 'Window'\n!TYPE TRANSPARENT\n_ 1 = 12 0.006 0 0.15\n!END\n");
    EXPECT_EQ(First().type, transparentType);
    EXPECT_EQ(First().layers[1].absorption, 0.15F);
}

TEST_F(ConstructionParser, RemembersTransparencyForThePartLinesUpToTheNextTypeLine) {
    Parse("!CONSTRUCTION 'A'\n!TYPE TRANSPARENT\n!END\n"
          "!CONSTRUCTION 'B'\n_ 1 = 12 0.006 0 0.15\n!TYPE OPAQUE\n_ 2 = 12 0.006 0 0.25\n!END\n");
    EXPECT_EQ(project.constructions[2].type, opaqueType);
    EXPECT_EQ(project.constructions[2].layers[1].absorption, 0.15F);
    EXPECT_EQ(project.constructions[2].layers[2].absorption, 0);
}

TEST_F(ConstructionParser, DoesNotTurnATransparentConstructionOpaqueAgain) {
    Parse("!CONSTRUCTION 'A'\n!TYPE TRANSPARENT\n!TYPE OPAQUE\n!END\n");
    EXPECT_EQ(First().type, transparentType);
}

TEST_F(ConstructionParser, IgnoresATypeOutsideAConstruction) {
    Parse("!CONSTRUCTION 'A'\n!END\n!TYPE TRANSPARENT\n");
    EXPECT_EQ(First().type, opaqueType);
}

TEST_F(ConstructionParser, IgnoresAnEndOutsideAnySection) {
    Parse("!END\n!CONSTRUCTION 'A'\n!END\n!END\n!CONSTRUCTION 'B'\n_ 1 = 12 0.1 0\n");
    EXPECT_EQ(project.constructionCount, 2);
    EXPECT_EQ(LayerNames(project, 2), "1");
}

TEST_F(ConstructionParser, FindsKeywordsAnywhereInALine) {
    Parse("x !CONSTRUCTION 'A'\nabc !TYPE is TRANSPARENT\n_ 1 = 12 0.1 0\n text before !END\n"
          "_ 2 = 12 0.1 0\n");
    EXPECT_EQ(First().type, transparentType);
    EXPECT_EQ(LayerNames(project, 1), "1") << "the part line behind the end is none";
}

TEST_F(ConstructionParser, FindsKeywordsInCapitalsOnly) {
    Parse("!construction 'A'\n!Construction 'B'\n");
    EXPECT_EQ(project.constructionCount, 0);
}

TEST_F(ConstructionParser, LetsTheFirstTestOfALineDecide) {
    const ParsedFile parsed = Parse("!MATERIALS USER FILE = 'u' !MATERIALS FILE\n"
                                    "!MATERIALS FILE = '!CONSTRUCTION'\n"
                                    "!CONSTRUCTION '!TYPE TRANSPARENT !END'\n");
    EXPECT_TRUE(parsed.userLineSeen);
    EXPECT_EQ(project.standardLibraryFile, "!CONSTRUCTION");
    EXPECT_EQ(First().name, "!TYPE TRANSPARENT !END");
    EXPECT_EQ(First().type, opaqueType);
}

TEST_F(ConstructionParser, StopsAtTheEndMark) {
    Parse("!CONSTRUCTION 'A'\n!END\nsee !EOF here\n!CONSTRUCTION 'B'\n!END\n");
    EXPECT_EQ(project.constructionCount, 1);
}

TEST_F(ConstructionParser, IgnoresAnEndMarkInAComment) {
    Parse("!CONSTRUCTION 'A' * !EOF\n!END\n!CONSTRUCTION 'B'\n!END\n");
    EXPECT_EQ(project.constructionCount, 2);
}

TEST_F(ConstructionParser, TakesPartLinesOnlyWhileAConstructionIsOpen) {
    Parse("_ 1 = 12\n!CONSTRUCTION 'A'\n_ 1 = 12 0.1 0\n!END\n_ 2 = 12\n");
    EXPECT_EQ(LayerCount(First()), 1);
}

TEST_F(ConstructionParser, TakesASlashInAConstructionName) {
    Parse("!CONSTRUCTION 'Wall / roof }'\n!END\n");
    EXPECT_EQ(First().name, "Wall / roof }");
}

TEST_F(ConstructionParser, IgnoresEverythingElse) {
    Parse("Just text\n/ x\n }\n!PARTS\n!UNKNOWN = 'x'\n=\n_\n!TRANSMISSION =\n");
    EXPECT_EQ(project.constructionCount, 0);
    EXPECT_EQ(project.glassTypes[1].name, "");
}

TEST_F(ConstructionParser, TellsWhetherAnyLineIsOneOfTheFormat) {
    EXPECT_FALSE(Parse("").formatSeen);
    EXPECT_FALSE(Parse("\ntext\n* !END\n_ 1 = 12 0.1 0\n!ANGLE\n!window\n").formatSeen);
    for (const char* line :
         {"!EOF", "!END", "!TYPE", "!MATERIALS FILE = 'a.lby'", "!MATERIALS USER FILE = 'a.lby'",
          "!CONSTRUCTION 'A'", "!WINDOW = 'CLEAR'"})
        EXPECT_TRUE(Parse(std::string("text\n") + line + "\n").formatSeen) << line;
}

TEST_F(ConstructionParser, FailsWhereAQuotedTextHasNoEnd) {
    EXPECT_EQ(Failure("!MATERIALS FILE = 'std.lby"), 5);
    EXPECT_EQ(Failure("!MATERIALS USER FILE = 'std.lby"), 5);
    EXPECT_EQ(Failure("!MATERIALS FILE = std.lby"), 5);
    EXPECT_EQ(Failure("!CONSTRUCTION Wall"), 5);
    EXPECT_EQ(Failure("!WINDOW = 'CLEAR"), 5);
    EXPECT_EQ(Failure("!CONSTRUCTION 'Wall * 2'\n"), 5) << "the comment takes the apostrophe";
}

TEST_F(ConstructionParser, KeepsWhatItReadBeforeAFailure) {
    EXPECT_EQ(Failure("!CONSTRUCTION 'A'\n_ 1 = 12 0.1 0\n_2=34\n!CONSTRUCTION 'B'\n"), 5);
    EXPECT_EQ(project.constructionCount, 1);
    EXPECT_EQ(LayerNames(project, 1), "1");
}

TEST_F(ConstructionParser, HasMadeTheConstructionWhoseNameBreaksOff) {
    EXPECT_EQ(Failure("!CONSTRUCTION 'AB"), 5);
    EXPECT_EQ(project.constructionCount, 1);
    EXPECT_EQ(First().name, "");
}

TEST_F(ConstructionParser, ReportsTheProgressOfALongFile) {
    int reports = 0;
    std::size_t last = 0;
    ParserEvents events;
    events.progress = [&](std::size_t done, std::size_t total) {
        ++reports;
        last = done;
        EXPECT_LE(done, total);
    };
    const std::string text(10'000, '\n');
    ParseConstructionFile(text, project, events);
    EXPECT_EQ(reports, 3);
    EXPECT_EQ(last, text.size());
}

} // namespace
} // namespace strativo
