#include "project/ReadBack.h"

#include "edit/GlassTypes.h"
#include "project/SaveQuestions.h"
#include "support/TestProject.h"

#include <gmock/gmock.h>

namespace strativo {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

struct NameCase {
    const char* label;
    const char* name;
    bool construction; ///< comes back as the name of a construction
    bool glass;        ///< comes back as the name of an ordinary glass type
};

class NamesInFiles : public testing::TestWithParam<NameCase> {};

TEST_P(NamesInFiles, AreListedWhenTheyWouldNotComeBack) {
    ScriptedPrompts prompts;
    Project constructions;
    constructions.constructions[AddConstruction(constructions, {"A"})].name = GetParam().name;
    EXPECT_EQ(UnreadableNames(constructions).empty(), GetParam().construction);
    Project glass;
    AddGlassType(glass, GetParam().name);
    EXPECT_EQ(UnreadableNames(glass).empty(), GetParam().glass);
}

INSTANTIATE_TEST_SUITE_P(All, NamesInFiles,
                         testing::Values(NameCase{"Plain", "Wall, north (2)", true, true},
                                         NameCase{"Apostrophe", "Wall 'A'", false, false},
                                         NameCase{"Asterisk", "Wall *", false, false},
                                         NameCase{"EndOfFile", "to !EOF", false, false},
                                         NameCase{"Slash", "Wall/Roof", true, false},
                                         NameCase{"Brace", "Wall }", true, false},
                                         NameCase{"TwoD", "Plan 2D", true, false},
                                         NameCase{"LibraryKeyword", "!MATERIALS FILE", false,
                                                  false},
                                         NameCase{"Exclamation", "Wow! Nice", true, true},
                                         NameCase{"HighBytes",
                                                  "Fa\xE7"
                                                  "ade \xFC",
                                                  true, true}),
                         [](const auto& row) { return row.param.label; });

TEST(UnreadableNames, LeavesOutPlainLibraryPaths) {
    Project project;
    project.standardLibraryFile = "/home/me/stdmat.lby";
    project.userLibraryFile = "/home/me/user.lby";
    project.userLoaded = true;
    EXPECT_THAT(UnreadableNames(project), IsEmpty());
}

TEST(UnreadableNames, ListsLibraryPathsThatWouldBeCut) {
    ScriptedPrompts prompts;
    Project project;
    project.standardLibraryFile = "/home/o'neill/stdmat.lby";
    project.userLibraryFile = "/tmp/a*b.lby";
    EXPECT_THAT(UnreadableNames(project), ElementsAre("/home/o'neill/stdmat.lby"));
    project.userLoaded = true;
    EXPECT_THAT(UnreadableNames(project), ElementsAre("/home/o'neill/stdmat.lby", "/tmp/a*b.lby"));
}

TEST(UnreadableNames, TakesTwoDimensionalTypesForWhatTheyAre) {
    ScriptedPrompts prompts;
    Project project;
    AddGlassType2D(project, "Blind 2D");
    EXPECT_THAT(UnreadableNames(project), IsEmpty());
    AddGlassType2D(project, "Blind / 2D");
    AddGlassType2D(project, "'2D'");
    EXPECT_THAT(UnreadableNames(project), ElementsAre("Blind / 2D", "'2D'"));
}

TEST(UnreadableNames, LeavesOutRemovedConstructions) {
    ScriptedPrompts prompts;
    Project project;
    const int number = AddConstruction(project, {"A"});
    project.constructions[number].name = "it's";
    project.constructions[number].window.open = false;
    EXPECT_THAT(UnreadableNames(project), IsEmpty());
}

TEST(SaveCheck, AsksAboutNamesLastAndInTheSameForm) {
    ScriptedPrompts prompts;
    Project project;
    const int number = AddConstruction(project, {"A"});
    project.constructions[number].name = "it's";
    prompts.Answers(Answer::no);
    EXPECT_FALSE(CheckBeforeSave(project, prompts));
    ASSERT_EQ(prompts.messages.size(), 1U);
    EXPECT_EQ(prompts.messages[0].text,
              "The following name(s) cannot be read back from a construction file\r\rit's\r\r"
              "Do you wish to save anyway?\r");
    EXPECT_EQ(prompts.messages[0].title, "Name error");
}

} // namespace
} // namespace strativo
