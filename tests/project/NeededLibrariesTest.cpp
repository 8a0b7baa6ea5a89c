#include "project/ReadConstructionFile.h"
#include "support/Samples.h"
#include "support/SpecialFiles.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace strativo {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

constexpr char userNeeded[] = "This construction file requires a user material library";
constexpr char userRefused[] = "Unable to load this file due to missing user library";
constexpr char standardNeeded[] = "This construction file requires a standard material library";
constexpr char standardRefused[] = "Unable to load this file due to missing library";

/// Reads files that name their libraries, or do not; the remembered default is there.
class NeededLibraries : public testing::Test {
protected:
    NeededLibraries() {
        folder.Write("stdmat.lby", standardLibraryBytes);
        folder.Write("user.lby", userLibraryBytes);
        project.rememberedLibrary = "stdmat.lby";
    }

    void Read(const std::vector<std::string>& lines) {
        folder.Write("house.con", Lines(lines));
        ReadConstructionFile(project, "house.con", prompts);
    }

    const std::vector<std::string> userLayer = {"!CONSTRUCTION 'A'",
                                                "_ 1 =      @12      0.040      0 ", "!END"};

    TemporaryFolder folder;
    ScriptedPrompts prompts;
    Project project;
};

TEST_F(NeededLibraries, AreTheRememberedDefaultForAFileThatNamesNone) {
    Read({"!CONSTRUCTION 'A'", "_ 1 = 12 0.1 0", "!END"});
    EXPECT_THAT(prompts.messages, IsEmpty());
    EXPECT_EQ(project.standardLibraryFile, "stdmat.lby");
    EXPECT_EQ(LayerNames(project, 1), "FACE BRICK");
}

TEST_F(NeededLibraries, AreTheOneLoadedForAFileThatNamesNone) {
    folder.Write("other.lby", "12'OTHER' 1 2 3\n");
    Read({"!MATERIALS FILE = 'other.lby'"});
    Read({"!CONSTRUCTION 'A'", "_ 1 = 12 0.1 0", "!END"});
    EXPECT_THAT(prompts.messages, IsEmpty());
    EXPECT_THAT(prompts.filePrompts, IsEmpty());
    EXPECT_EQ(LayerNames(project, 1), "OTHER");
}

TEST_F(NeededLibraries, AreReadAgainForEachFileThatNamesThem) {
    Read({"!MATERIALS FILE = 'stdmat.lby'"});
    folder.Write("stdmat.lby", "12'NEW' 1 2 3\n");
    Read({"!MATERIALS FILE = 'stdmat.lby'", "!CONSTRUCTION 'A'", "_ 1 = 12 0.1 0", "!END"});
    EXPECT_EQ(LayerNames(project, 1), "NEW");
}

TEST_F(NeededLibraries, AreTheDefaultForAFileSavedBeforeAnyWasLoaded) {
    Read({"!MATERIALS FILE = ' '", "!CONSTRUCTION 'A'", "_ 1 = 12 0.1 0", "!END"});
    EXPECT_EQ(project.standardLibraryFile, "stdmat.lby");
    EXPECT_EQ(LayerNames(project, 1), "FACE BRICK");
}

TEST_F(NeededLibraries, AreAskedForWhereAFileWithoutConstructionsNamesNone) {
    prompts.OpensFile("stdmat.lby");
    Read({"!WINDOW = 'G'", "!END"});
    EXPECT_THAT(prompts.messages, ElementsAre(Message{standardNeeded, "Material file Required"}));
    EXPECT_EQ(prompts.filePrompts[0].title, "Open standard material file");
    EXPECT_EQ(project.standardLibraryFile, "stdmat.lby");
    EXPECT_TRUE(project.standardLoaded);
}

TEST_F(NeededLibraries, EndTheProgramWhenTheStandardOneIsRefused) {
    prompts.OpensFile("");
    EXPECT_THROW(Read({"!WINDOW = 'G'", "!END"}), ProgramEnd);
    EXPECT_THAT(prompts.messages, ElementsAre(Message{standardNeeded, "Material file Required"},
                                              Message{standardRefused, ""}));
}

TEST_F(NeededLibraries, EndTheProgramWhenThePromptAfterAMissingDefaultIsCancelled) {
    project.rememberedLibrary = "missing.lby";
    prompts.OpensFile("");
    EXPECT_THROW(Read({"!CONSTRUCTION 'A'", "!END"}), ProgramEnd);
    EXPECT_THAT(prompts.Texts(),
                ElementsAre("Standard material file is missing.", "Cancel pressed aborting load"));
    EXPECT_EQ(project.constructionFile, "") << "half a project must not be saved over the file";
}

TEST_F(NeededLibraries, ReportAStandardOneThatFailsOnceForAllConstructions) {
    MakeSocket("socket");
    project.rememberedLibrary = "socket";
    prompts.OpensFile("stdmat.lby");
    Read({"!CONSTRUCTION 'A'", "!END", "!CONSTRUCTION 'B'", "!END"});
    EXPECT_THAT(prompts.Texts(),
                ElementsAre("Standard material file. Drive not available.", standardNeeded));
    EXPECT_EQ(project.constructionCount, 2);
    EXPECT_TRUE(project.standardLoaded);
}

TEST_F(NeededLibraries, GoOnWithoutAStandardOneThatFailsOtherwise) {
    folder.Write("folder/x", "");
    Read({"!MATERIALS FILE = 'folder'", "!WINDOW = 'G'"});
    EXPECT_THAT(prompts.Texts(), ElementsAre("Standard material file error 75 occurred."));
    EXPECT_FALSE(project.standardLoaded);
}

TEST_F(NeededLibraries, LeaveTheProjectUntitledAndLinkedToNothingOldWhenTheyStop) {
    Read({"!MATERIALS FILE = 'stdmat.lby'", "!CONSTRUCTION 'A'", "_ 1 = 12 0.1 0", "!END"});
    EXPECT_EQ(LayerNames(project, 1), "FACE BRICK");
    EXPECT_EQ(project.constructionFile, "house.con");
    folder.Write("overflow.lby", "7'NEW' 1 2 3\n12'BRICK' 1e999 2 3\n");
    Read({"!MATERIALS FILE = 'overflow.lby'", "!CONSTRUCTION 'A'", "_ 1 = 12 0.1 0",
          "_ 2 = 7 0.1 0", "!END"});
    EXPECT_EQ(LayerNames(project, 1), "1NEW");
    EXPECT_EQ(project.constructionFile, "") << "no save puts this over the file";
    folder.Write("user.lby", "12* HEMP,1e999 2 3\n");
    Read({"!MATERIALS FILE = 'stdmat.lby'", "!MATERIALS USER FILE = 'user.lby'",
          "!CONSTRUCTION 'A'", "_ 1 =      @12 0.1 0", "!END"});
    EXPECT_EQ(LayerNames(project, 1), "1");
    EXPECT_EQ(project.constructionFile, "");
}

TEST_F(NeededLibraries, LeaveTheFileItsNameWhenALaterLoadMakesTheirFailureGood) {
    folder.Write("folder/x", "");
    project.rememberedLibrary = "folder";
    prompts.OpensFile("stdmat.lby");
    folder.Write("house.con", Lines({"!CONSTRUCTION 'A'", "_ 1 = 12 0.1 0", "!END"}));
    EXPECT_EQ(ReadConstructionFile(project, "house.con", prompts), FileReading::whole);
    EXPECT_EQ(project.constructionFile, "house.con");
    EXPECT_EQ(LayerNames(project, 1), "FACE BRICK");
}

TEST_F(NeededLibraries, AreBothSortedAfterReading) {
    Read({"!MATERIALS FILE = 'stdmat.lby'", "!MATERIALS USER FILE = 'user.lby'"});
    EXPECT_EQ(project.standardLibrary[1].name, "ALUMINIUM");
    EXPECT_EQ(project.userLibrary[1].name, "CORK");
    folder.Write("own.lby", "2'B' 1 2 3\n1'A' 1 2 3\n");
    Read({"!MATERIALS FILE = 'own.lby'", "!MATERIALS USER FILE = 'user.lby'", "!CONSTRUCTION 'A'",
          "!END"});
    EXPECT_EQ(project.standardLibrary[1].name, "A");
}

TEST_F(NeededLibraries, TellWhatBecameOfThem) {
    const auto result = [&](const std::vector<std::string>& lines) {
        folder.Write("house.con", Lines(lines));
        return ReadConstructionFile(project, "house.con", prompts);
    };
    const std::string standard = "!MATERIALS FILE = 'stdmat.lby'";
    folder.Write("wrong.lby", "no library\n");
    folder.Write("folder/x", "");
    EXPECT_EQ(result({standard, "!MATERIALS USER FILE = 'user.lby'"}), FileReading::whole);
    for (const char* name : {"wrong.lby", "folder"}) {
        const std::string file = std::string(name) + "'";
        EXPECT_EQ(result({"!MATERIALS FILE = '" + file}), FileReading::withoutLibrary);
        EXPECT_EQ(result({standard, "!MATERIALS USER FILE = '" + file}),
                  FileReading::withoutLibrary);
    }
    prompts.OpensFile("");
    EXPECT_EQ(result({standard, "!MATERIALS USER FILE = ''"}), FileReading::withoutLibrary);
    EXPECT_EQ(result({standard, "!WINDOW = 'no end"}), FileReading::stopped);
    ASSERT_EQ(result({standard}), FileReading::whole);
    EXPECT_EQ(result({"Dear Sir,"}), FileReading::foreign);
    EXPECT_EQ(project.constructionFile, "house.con");
    prompts.OpensFile("");
    EXPECT_EQ(ReadConstructionFile(project, "", prompts), FileReading::cancelled);
}

TEST_F(NeededLibraries, AreAskedForWhereALayerComesFromAnUnnamedUserLibrary) {
    prompts.OpensFile("user.lby");
    Read(userLayer);
    EXPECT_THAT(prompts.messages, ElementsAre(Message{userNeeded, "User file Required"}));
    EXPECT_EQ(prompts.filePrompts[0].title, "Open user material file");
    EXPECT_EQ(LayerNames(project, 1), "HEMP");
    EXPECT_EQ(project.userLibraryFile, "user.lby");
}

TEST_F(NeededLibraries, EndTheProgramWhenTheUserOneIsRefused) {
    prompts.OpensFile("");
    EXPECT_THROW(Read(userLayer), ProgramEnd);
    EXPECT_THAT(prompts.messages, ElementsAre(Message{userNeeded, "User file Required"},
                                              Message{userRefused, "User file Required"}));
}

TEST_F(NeededLibraries, EndTheProgramWhenTheUserOneIsOfWrongVersion) {
    folder.Write("wrong.lby", "no library\n");
    prompts.OpensFile("wrong.lby");
    EXPECT_THROW(Read(userLayer), ProgramEnd);
    EXPECT_THAT(prompts.Texts(),
                ElementsAre(userNeeded, "User material file is incorrect version", userRefused));
}

TEST_F(NeededLibraries, EndTheProgramWhenTheUnnamedUserOneIsGivenUp) {
    prompts.OpensFile("missing.lby").OpensFile("").OpensFile("");
    EXPECT_THROW(Read(userLayer), ProgramEnd);
    EXPECT_EQ(prompts.Texts().back(), userRefused);
}

TEST_F(NeededLibraries, GoOnWithoutAnUnnamedUserOneThatFailsOtherwise) {
    folder.Write("folder/x", "");
    prompts.OpensFile("folder");
    Read(userLayer);
    EXPECT_THAT(prompts.Texts(), ElementsAre(userNeeded, "User Material file error 75 occurred."));
    EXPECT_EQ(LayerNames(project, 1), "1");
}

TEST_F(NeededLibraries, AskForAnotherUserFileWhereTheNamedOneIsMissing) {
    prompts.OpensFile("user.lby");
    Read({"!MATERIALS FILE = 'stdmat.lby'", "!MATERIALS USER FILE = 'missing.lby'"});
    EXPECT_THAT(prompts.Texts(), ElementsAre("User material file is missing."));
    EXPECT_EQ(prompts.filePrompts[0].initialName, "missing.lby");
    EXPECT_EQ(project.userLibraryFile, "user.lby");
}

TEST_F(NeededLibraries, EndTheProgramWhenTheNamedUserOneIsGivenUp) {
    prompts.OpensFile("").OpensFile("");
    EXPECT_THROW(Read({"!MATERIALS USER FILE = 'missing.lby'"}), ProgramEnd);
    EXPECT_THAT(prompts.messages, ElementsAre(Message{"User material file is missing.", ""},
                                              Message{"User material file is missing.", ""},
                                              Message{userRefused, "User file Required"}));
}

TEST_F(NeededLibraries, AreAskedForWhereTheUserLineNamesNone) {
    prompts.OpensFile("");
    Read({"!MATERIALS FILE = 'stdmat.lby'", "!MATERIALS USER FILE = ''"});
    EXPECT_THAT(prompts.messages, IsEmpty());
    EXPECT_FALSE(project.userLoaded);
    EXPECT_EQ(project.userLibraryFile, "");
}

TEST_F(NeededLibraries, GoOnAfterANamedUserOneOfWrongVersion) {
    folder.Write("wrong.lby", "no library\n");
    Read({"!MATERIALS FILE = 'stdmat.lby'", "!MATERIALS USER FILE = 'wrong.lby'"});
    EXPECT_THAT(prompts.Texts(), ElementsAre("User material file is incorrect version"));
    EXPECT_FALSE(project.userLoaded);
    EXPECT_EQ(project.userLibraryFile, "");
}

} // namespace
} // namespace strativo
