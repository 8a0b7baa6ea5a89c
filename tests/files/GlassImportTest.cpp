#include "files/GlassImport.h"

#include "edit/GlassTypes.h"
#include "support/Samples.h"
#include "support/SpecialFiles.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace strativo {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class GlassImport : public testing::Test {
protected:
    GlassImport() { prompts.calls.clear(); }

    void Import(std::string_view text) {
        folder.Write("from.con", text);
        prompts.OpensFile("from.con");
        ImportGlassDefinitions(project, prompts);
    }

    TemporaryFolder folder;
    ScriptedPrompts prompts;
    Project project;
};

TEST_F(GlassImport, AsksWithTheConstructionFilePrompt) {
    prompts.OpensFile("");
    ImportGlassDefinitions(project, prompts);
    EXPECT_THAT(prompts.filePrompts,
                ElementsAre(FilePrompt{"Open Construction file", "Construction Files (*.con)|*.con",
                                       "", "CON"}));
    EXPECT_FALSE(project.changed) << "cancelled";
}

TEST_F(GlassImport, AddsTypesWhoseNamesAreThereAlready) {
    AddGlassType(project, "CLEAR");
    Import("!WINDOW = 'CLEAR'\n!TRANS\n1\n!END\n!WINDOW = 'CLEAR'\n!TRANS\n2\n!END\n");
    EXPECT_THAT(GlassTypeNames(project), ElementsAre("CLEAR", "CLEAR", "CLEAR"));
    EXPECT_EQ(project.glassTypes[1].transmission[1], 0);
    EXPECT_EQ(project.glassTypes[3].transmission[1], 2);
    EXPECT_TRUE(project.changed);
    EXPECT_THAT(prompts.calls, ElementsAre("AskOpen Open Construction file"))
        << "nothing on screen is refreshed";
}

TEST_F(GlassImport, FillsTheSlotOfADeletedTypeFirst) {
    for (const char* name : {"A", "B", "C"})
        AddGlassType(project, name);
    project.glassTypes[2].hasDiffusion = true;
    project.glassTypes[2].transmission[11] = 9;
    prompts.Answers(Answer::yes);
    DeleteGlassType(project, "B", prompts);
    Import("!WINDOW = 'X'\n!TRANS\n1\n!WINDOW = 'Y'\n");
    EXPECT_THAT(GlassTypeNames(project), ElementsAre("A", "X", "C", "Y"));
    EXPECT_EQ(project.glassTypes[2].transmission[11], 0);
    EXPECT_FALSE(project.glassTypes[2].hasDiffusion);
    EXPECT_EQ(project.currentGlassType, 4);
}

TEST_F(GlassImport, StoresElevenValues) {
    Import("!WINDOW = 'A'\n!TRANS\n1 2 3 4 5 6 7 8 9 10 11 12\n!ABSORP\n1 2 3 4 5 6 7 8 9\n"
           "!DIFFU\none 1, two 2\n");
    EXPECT_THAT(Values(project.glassTypes[1].transmission),
                ElementsAre(1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11));
    EXPECT_THAT(Values(project.glassTypes[1].absorption),
                ElementsAre(1, 2, 3, 4, 5, 6, 7, 8, 9, 0, 0));
    EXPECT_THAT(Values(project.glassTypes[1].diffusion),
                ElementsAre(1, 2, 0, 0, 0, 0, 0, 0, 0, 0, 0));
    EXPECT_TRUE(project.glassTypes[1].hasDiffusion);
}

TEST_F(GlassImport, TakesTwoDimensionalTypes) {
    std::string text = "!WINDOW = 'OVERHANG 2D'\n!TRANSMISSION =\n";
    for (int row = 1; row <= 19; ++row)
        text += std::to_string(row) + ", 0.5\n";
    Import(text + " }\n!END\n");
    EXPECT_EQ(project.glassTypes2D[1].name, "OVERHANG 2D");
    EXPECT_EQ(project.glassTypes2D[1].transmission[19][1], 19);
    EXPECT_EQ(project.glassTypes2D[1].transmission[19][2], 0.5F);
    EXPECT_THAT(GlassTypeNames(project), IsEmpty());
}

TEST_F(GlassImport, TakesANameWithASlash) {
    Import("!WINDOW = 'A/B }'\n!END\n");
    EXPECT_THAT(GlassTypeNames(project), ElementsAre("A/B }"));
}

TEST_F(GlassImport, UsesTheNameBeforeForOneThatIsTooShort) {
    Import("!WINDOW = ''\n!END\n!WINDOW = 'A'\n!END\n!WINDOW = ''\n!END\n!WINDOW = '\n!END\n");
    EXPECT_THAT(GlassTypeNames(project), ElementsAre("A", "A", "A"));
}

TEST_F(GlassImport, IgnoresTablesBeforeTheFirstTypeAndAllOtherLines) {
    Import("!TRANS\n9\n!MATERIALS FILE = 'x'\n!CONSTRUCTION 'C'\n!TYPE TRANSPARENT\n"
           "_ 1 = 12 0.1 0\n!END\n!WINDOW = 'A'\n!TYPE\n");
    EXPECT_EQ(project.constructionCount, 0);
    EXPECT_EQ(project.standardLibraryFile, singleBlank);
    EXPECT_EQ(project.glassTypes[1].transmission[1], 0);
    EXPECT_EQ(project.glassTypes[1].name, "A");
}

TEST_F(GlassImport, MarksTheProjectAsChangedEvenWithoutAnyType) {
    Import("!CONSTRUCTION 'C'\n!END\n");
    EXPECT_TRUE(project.changed);
    EXPECT_THAT(GlassTypeNames(project), IsEmpty());
}

TEST_F(GlassImport, SaysHowManyTypesItBrought) {
    Import("!WINDOW = 'A'\n!WINDOW = ''\n!WINDOW 2D = 'H'\n!WINDOW = 'B'\n");
    EXPECT_EQ(project.said, "4 glass types imported") << "the second A too";
    project.said.clear();
    Import("!CONSTRUCTION 'C'\n!END\n");
    EXPECT_EQ(project.said, "0 glass types imported");
    project.said.clear();
    Import("!WINDOW = 'D'\n!WINDOW = 'NO END\n");
    EXPECT_EQ(project.said, "1 glass type imported") << "before the failure";
}

TEST_F(GlassImport, StopsAtTheEndMark) {
    Import("!WINDOW = 'A'\n!EOF\n!WINDOW = 'B'\n");
    EXPECT_THAT(GlassTypeNames(project), ElementsAre("A"));
}

TEST_F(GlassImport, TagsCommentsByTheCountOfSectionsRead) {
    AddGlassType(project, "THERE");
    Import("Head *head\n!CONSTRUCTION 'C' *too\n_ 1 = 12 0.1 0 *no\n*no\n"
           "!WINDOW = 'A' *a1\n!TRANSMISSION = *a2\n1 * no\n"
           "!WINDOW 2D = 'H' *h\n!WINDOW = 'B' *b\n");
    EXPECT_THAT(project.comments.fileHead, ElementsAre("head", "too"));
    EXPECT_THAT(project.comments.glassTypes.Of(1), ElementsAre("a1", "a2"))
        << "by the count, though A has slot 2";
    EXPECT_THAT(project.comments.glassTypes.Of(2), ElementsAre("b"));
    EXPECT_THAT(project.comments.glassTypes2D.Of(1), ElementsAre("h"));
}

struct Failing {
    const char* file;
    const char* message;
};

void PrintTo(const Failing& failing, std::ostream* out) {
    *out << failing.file;
}

class GlassImportFailure : public GlassImport, public testing::WithParamInterface<Failing> {};

TEST_P(GlassImportFailure, IsReportedOnceAndAsksForNoOtherFile) {
    folder.Write("none.con", "!WINDOW A\n");
    folder.Write("folder/x", "");
    MakeSocket("socket");
    prompts.OpensFile(GetParam().file);
    ImportGlassDefinitions(project, prompts);
    EXPECT_THAT(prompts.messages, ElementsAre(Message{GetParam().message, ""}));
    EXPECT_FALSE(project.changed);
}

INSTANTIATE_TEST_SUITE_P(
    Named, GlassImportFailure,
    testing::Values(Failing{"none.con", "Construction file (g) is incorrect version"},
                    Failing{"missing.con", "Construction file (g) is missing."},
                    Failing{"no folder/a.con", "Construction file (g). That path doesn't exist."},
                    Failing{"socket", "Construction file (g). Drive not available."},
                    Failing{"folder", "Construction (g) file error  75 occurred."}));

TEST_F(GlassImport, KeepsTheTypesAddedBeforeAFailure) {
    Import("!WINDOW = 'A'\n!WINDOW = 'NO END\n");
    EXPECT_THAT(prompts.Texts(), ElementsAre("Construction file (g) is incorrect version"));
    EXPECT_THAT(GlassTypeNames(project), ElementsAre("A"));
    EXPECT_TRUE(project.changed);
}

TEST_F(GlassImport, KeepsTwoDimensionalTypesAddedBeforeAFailureToo) {
    Import("!WINDOW 2D = 'H'\n!TRANS\n1e39\n");
    EXPECT_THAT(prompts.Texts(), ElementsAre("Construction (g) file error  6 occurred."));
    EXPECT_EQ(project.glassTypes2D[1].name, "H");
    EXPECT_TRUE(project.changed);
}

TEST_F(GlassImport, LeavesAnEarlierChangeMarkedAfterAFailure) {
    project.changed = true;
    Import("!WINDOW\n");
    EXPECT_EQ(prompts.messages.size(), 1U);
    EXPECT_TRUE(project.changed);
}

} // namespace
} // namespace strativo
