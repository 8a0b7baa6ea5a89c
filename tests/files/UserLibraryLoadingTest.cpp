#include "files/LibraryLoading.h"
#include "support/Samples.h"
#include "support/SpecialFiles.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace strativo {
namespace {

using testing::ElementsAre;

class UserLibraryLoading : public testing::Test {
protected:
    UserLibraryLoading() {
        folder.Write("user.lby", userLibraryBytes);
        prompts.calls.clear();
    }

    LibraryLoad Load(const std::string& name) {
        project.userLibraryFile = name;
        return LoadUserLibrary(project, prompts);
    }

    static FilePrompt Prompt(const std::string& initialName) {
        const bool found = initialName == "half.lby";
        return {"Open user material file", "Material Files (*.lby)|*.lby", initialName, "LBY",
                found ? "." : ""};
    }

    TemporaryFolder folder;
    ScriptedPrompts prompts;
    Project project;
};

TEST_F(UserLibraryLoading, LoadsAndShowsTheFileNamed) {
    EXPECT_EQ(Load("user.lby"), LibraryLoad::loaded);
    EXPECT_TRUE(project.userLoaded);
    EXPECT_EQ(project.shownLibrary, 2);
    EXPECT_EQ(MaterialCount(project.userLibrary), 2);
    EXPECT_EQ(project.userLibrary[1].name, "HEMP");
    EXPECT_THAT(prompts.calls, testing::IsEmpty());
}

TEST_F(UserLibraryLoading, AsksWhereThereIsNoName) {
    prompts.OpensFile("user.lby");
    EXPECT_EQ(Load(""), LibraryLoad::loaded);
    EXPECT_EQ(project.userLibraryFile, "user.lby");
    EXPECT_THAT(prompts.filePrompts, ElementsAre(Prompt("")));
}

TEST_F(UserLibraryLoading, ChangesNothingWhenTheFirstPromptIsCancelled) {
    Load("user.lby");
    prompts.OpensFile("");
    EXPECT_EQ(Load(""), LibraryLoad::cancelled);
    EXPECT_EQ(project.userLibraryFile, "");
    EXPECT_TRUE(project.userLoaded);
    EXPECT_EQ(MaterialCount(project.userLibrary), 2);
    EXPECT_TRUE(prompts.messages.empty());
}

TEST_F(UserLibraryLoading, TakesASingleBlankForACancel) {
    EXPECT_EQ(Load(singleBlank), LibraryLoad::cancelled);
    EXPECT_EQ(project.userLibraryFile, "");
}

struct Failing {
    const char* file;
    const char* message;
};

void PrintTo(const Failing& failing, std::ostream* out) {
    *out << failing.file;
}

class UserLibraryFailure : public UserLibraryLoading, public testing::WithParamInterface<Failing> {
protected:
    UserLibraryFailure() { folder.Write("half.lby", "1* HALF,1 2 3\n5* AB,1\n"); }
};

TEST_P(UserLibraryFailure, IsReportedAndAnotherFileLoadedFromTheFirstSlot) {
    prompts.OpensFile("user.lby");
    EXPECT_EQ(Load(GetParam().file), LibraryLoad::loaded);
    EXPECT_THAT(prompts.messages, ElementsAre(Message{GetParam().message, ""}));
    EXPECT_THAT(prompts.filePrompts, ElementsAre(Prompt(GetParam().file)));
    EXPECT_EQ(project.userLibraryFile, "user.lby");
    EXPECT_EQ(MaterialCount(project.userLibrary), 2);
}

TEST_P(UserLibraryFailure, ComesBackOnceAfterACancel) {
    prompts.OpensFile("").OpensFile("user.lby");
    EXPECT_EQ(Load(GetParam().file), LibraryLoad::loaded);
    EXPECT_THAT(prompts.Texts(), ElementsAre(GetParam().message, "User material file is missing."));
    ASSERT_EQ(prompts.filePrompts.size(), 2U);
    EXPECT_EQ(prompts.filePrompts[0], Prompt(GetParam().file));
    EXPECT_EQ(prompts.filePrompts[1].initialName, singleBlank);
}

TEST_P(UserLibraryFailure, IsGivenUpByASecondCancel) {
    prompts.OpensFile("").OpensFile("");
    EXPECT_EQ(Load(GetParam().file), LibraryLoad::givenUp);
    EXPECT_THAT(prompts.Texts(), ElementsAre(GetParam().message, "User material file is missing."));
    EXPECT_EQ(project.userLibraryFile, "");
    EXPECT_FALSE(project.userLoaded);
}

TEST_P(UserLibraryFailure, ForgetsACancelOnceAnotherFileWasChosen) {
    prompts.OpensFile("").OpensFile("missing too.lby").OpensFile("").OpensFile("user.lby");
    EXPECT_EQ(Load(GetParam().file), LibraryLoad::loaded);
    EXPECT_EQ(prompts.messages.size(), 4U);
}

INSTANTIATE_TEST_SUITE_P(
    Named, UserLibraryFailure,
    testing::Values(Failing{"half.lby", "User material file is incorrect version"},
                    Failing{"missing.lby", "User material file is missing."},
                    Failing{"no folder/a.lby", "User Material file. That path doesn't exist."},
                    Failing{"d:a.lby", "User Material file. That path doesn't exist."}));

TEST_F(UserLibraryLoading, StopsAfterTheMessageOfAFailureThatNoOtherFileHelps) {
    Load("user.lby");
    std::string tooMany;
    for (int number = 1; number <= 100; ++number)
        tooMany += "1* AB,1 2 3\n";
    folder.Write("too many.lby", tooMany);
    folder.Write("folder/x", "");
    EXPECT_EQ(Load("too many.lby"), LibraryLoad::failed);
    MakeSocket("socket");
    EXPECT_EQ(Load("socket"), LibraryLoad::failed);
    EXPECT_EQ(Load("folder"), LibraryLoad::failed);
    EXPECT_THAT(prompts.Texts(), ElementsAre("User Material file error 9 occurred.",
                                             "User Material file. Drive not available.",
                                             "User Material file error 75 occurred."));
    EXPECT_TRUE(prompts.filePrompts.empty());
    EXPECT_EQ(project.userLibraryFile, "folder");
}

TEST_F(UserLibraryLoading, KeepsNothingOfTheLibraryBeforeWhenItStops) {
    Load("user.lby");
    folder.Write("overflow.lby", "7* FLAX,1 2 3\n8* REED,1e999 2 3\n");
    prompts.calls.clear();
    EXPECT_EQ(Load("overflow.lby"), LibraryLoad::failed);
    EXPECT_EQ(project.userLibrary[1].name, "FLAX");
    EXPECT_EQ(MaterialCount(project.userLibrary), 1);
    EXPECT_FALSE(project.userLoaded);
    EXPECT_EQ(project.shownLibrary, 1);
    EXPECT_THAT(prompts.calls, ElementsAre("Message User Material file error 6 occurred."));
}

TEST_F(UserLibraryLoading, TellsOfAWrongVersionBeforeItTellsOfTooManyMaterials) {
    std::string tooMany;
    for (int number = 1; number <= 100; ++number)
        tooMany += "1* AB,1 2 3\n";
    folder.Write("both.lby", tooMany + "no record\n");
    EXPECT_EQ(Load("both.lby"), LibraryLoad::failed);
    EXPECT_THAT(prompts.Texts(), ElementsAre("User material file is incorrect version",
                                             "User Material file error 9 occurred."));
    EXPECT_EQ(project.userLibraryFile, "");
}

TEST_F(UserLibraryLoading, TakesAWrongVersionOutOfTheMaterialList) {
    Load("user.lby");
    folder.Write("wrong.lby", "1* AB,1 2 3\nno library\n");
    prompts.calls.clear();
    EXPECT_EQ(Load("wrong.lby"), LibraryLoad::wrongVersion);
    EXPECT_THAT(prompts.messages,
                ElementsAre(Message{"User material file is incorrect version", ""}));
    EXPECT_FALSE(project.userLoaded);
    EXPECT_EQ(project.userLibraryFile, "");
    EXPECT_EQ(MaterialCount(project.userLibrary), 0);
    EXPECT_EQ(project.shownLibrary, 1);
}

TEST_F(UserLibraryLoading, DroppingTheLibraryWhileItIsNotShownLeavesTheList) {
    Load("user.lby");
    project.shownLibrary = standardLibraryNumber;
    project.selectedMaterial = 3;
    DropUserLibrary(project);
    EXPECT_FALSE(project.userLoaded);
    EXPECT_EQ(project.selectedMaterial, 3);
}

} // namespace
} // namespace strativo
