#include "files/ConstructionPrompts.h"

#include "files/LibraryLoading.h"
#include "support/Samples.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace strativo {
namespace {

using testing::ElementsAre;

class ConstructionPrompts : public testing::Test {
protected:
    /// The folder that the last prompt started in.
    const std::string& Start() const { return prompts.filePrompts.back().startFolder; }

    /// Asks for a construction file, and gets none.
    const std::string& StartOfOpen() {
        prompts.OpensFile("");
        EXPECT_EQ(PromptConstructionFile(project, prompts), std::nullopt);
        return Start();
    }
    const std::string& StartOfLibrary(int number) {
        prompts.OpensFile("");
        EXPECT_EQ(PromptLibraryFile(project, number, "", prompts), std::nullopt);
        return Start();
    }

    TemporaryFolder folder;
    ScriptedPrompts prompts;
    Project project;
};

TEST_F(ConstructionPrompts, GiveTheChosenPath) {
    prompts.OpensFile("/a b/in.con").SavesFile("out \xe9.con");
    EXPECT_EQ(PromptConstructionFile(project, prompts), "/a b/in.con");
    EXPECT_EQ(PromptSaveConstructionFile(project, "", prompts), "out \xe9.con");
    EXPECT_THAT(prompts.filePrompts,
                ElementsAre(FilePrompt{"Open Construction file", "Construction Files (*.con)|*.con",
                                       "", "CON"},
                            FilePrompt{"Save Construction file as ",
                                       "Construction Files (*.con)|*.con", "", "CON"}));
}

TEST_F(ConstructionPrompts, GiveNothingForACancel) {
    prompts.OpensFile("").SavesFile("");
    EXPECT_EQ(PromptConstructionFile(project, prompts), std::nullopt);
    EXPECT_EQ(PromptSaveConstructionFile(project, "", prompts), std::nullopt);
}

TEST_F(ConstructionPrompts, StartInTheFolderOfTheFileElseOfTheOneUsedLast) {
    folder.Write("house/a.con", "");
    folder.Write("mine/b.con", "");
    EXPECT_EQ(StartOfOpen(), "");
    project.usedFolder = "mine";
    EXPECT_EQ(StartOfOpen(), "mine");
    project.constructionFile = "house/a.con";
    EXPECT_EQ(StartOfOpen(), "house");
    project.constructionFile = "a.con";
    EXPECT_EQ(StartOfOpen(), ".") << "the working directory";
    project.constructionFile = "gone/a.con";
    EXPECT_EQ(StartOfOpen(), "mine") << "that folder is no more";
}

TEST_F(ConstructionPrompts, ProposeTheNameOfTheFileToSaveAs) {
    folder.Write("house/a.con", "");
    prompts.SavesFile("");
    PromptSaveConstructionFile(project, "house/a.con", prompts);
    EXPECT_EQ(prompts.filePrompts[0].initialName, "a.con");
    EXPECT_EQ(Start(), "house");
}

TEST_F(ConstructionPrompts, OfALibraryStartInItsOwnFolder) {
    folder.Write("house/a.con", "");
    folder.Write("house/lib/std.lby", standardLibraryBytes);
    folder.Write("mine/user.lby", userLibraryBytes);
    project.constructionFile = "house/a.con";
    EXPECT_EQ(StartOfLibrary(userLibraryNumber), "house") << "none is loaded";
    project.standardLibraryFile = "lib\\std.lby";
    LoadStandardLibrary(project, prompts);
    project.userLibraryFile = "mine/user.lby";
    LoadUserLibrary(project, prompts);
    EXPECT_EQ(StartOfLibrary(standardLibraryNumber), "house/lib");
    EXPECT_EQ(StartOfLibrary(userLibraryNumber), "mine");
    EXPECT_EQ(StartOfOpen(), "house");
}

} // namespace
} // namespace strativo
