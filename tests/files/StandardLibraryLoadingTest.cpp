#include "files/LibraryLoading.h"
#include "support/Samples.h"
#include "support/SpecialFiles.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace strativo {
namespace {

using testing::ElementsAre;

/// A project whose standard library holds the three sample materials, in a folder of its own.
class StandardLibraryLoading : public testing::Test {
protected:
    StandardLibraryLoading() {
        folder.Write("stdmat.lby", standardLibraryBytes);
        project.standardLibraryFile = "stdmat.lby";
        LoadStandardLibrary(project, prompts);
        prompts.calls.clear();
    }

    LibraryLoad Load(const std::string& name) {
        project.standardLibraryFile = name;
        return LoadStandardLibrary(project, prompts);
    }

    void ExpectLibraryKept() {
        EXPECT_EQ(MaterialCount(project.standardLibrary), 9);
        EXPECT_EQ(project.standardLibrary[1].name, "FACE BRICK");
    }

    TemporaryFolder folder;
    ScriptedPrompts prompts;
    Project project;
};

TEST_F(StandardLibraryLoading, LoadsTheFileNamed) {
    folder.Write("other.lby", "5'X' 1 2 3");
    project.standardLoaded = false;
    EXPECT_EQ(Load("other.lby"), LibraryLoad::loaded);
    EXPECT_TRUE(project.standardLoaded);
    EXPECT_EQ(project.standardLibraryFile, "other.lby");
    EXPECT_EQ(MaterialCount(project.standardLibrary), 7);
    EXPECT_EQ(project.standardLibrary[1].name, "X");
    EXPECT_TRUE(prompts.calls.empty());
}

TEST_F(StandardLibraryLoading, TakesTheRememberedDefaultForASingleBlank) {
    folder.Write("default.lby", "5'X' 1 2 3");
    project.rememberedLibrary = "default.lby";
    EXPECT_EQ(Load(singleBlank), LibraryLoad::loaded);
    EXPECT_EQ(project.standardLibraryFile, "default.lby");
}

TEST_F(StandardLibraryLoading, AsksWhereThereIsNoName) {
    folder.Write("chosen.lby", "5'X' 1 2 3");
    prompts.OpensFile("chosen.lby");
    EXPECT_EQ(Load(""), LibraryLoad::loaded);
    EXPECT_EQ(project.standardLibraryFile, "chosen.lby");
    const FilePrompt prompt = {"Open standard material file", "Material Files (*.lby)|*.lby", "",
                               "LBY", "."};
    EXPECT_THAT(prompts.filePrompts, ElementsAre(prompt));
}

TEST_F(StandardLibraryLoading, KeepsTheLibraryWhenTheFirstPromptIsCancelled) {
    prompts.OpensFile("");
    EXPECT_EQ(Load(""), LibraryLoad::cancelled);
    EXPECT_EQ(project.standardLibraryFile, "");
    EXPECT_TRUE(prompts.messages.empty());
    ExpectLibraryKept();
}

TEST_F(StandardLibraryLoading, IsFoundBesideTheConstructionFile) {
    folder.Write("house/lib.lby", "5'X' 1 2 3");
    project.constructionFile = "house/house.con";
    EXPECT_EQ(Load("LIB.LBY"), LibraryLoad::loaded);
    EXPECT_EQ(project.standardLibraryFile, "LIB.LBY") << "the name stays as it was written";
}

struct Failing {
    const char* file;
    const char* message;
};

void PrintTo(const Failing& failing, std::ostream* out) {
    *out << failing.file;
}

class StandardLibraryFailure : public StandardLibraryLoading,
                               public testing::WithParamInterface<Failing> {
protected:
    StandardLibraryFailure() {
        folder.Write("half.lby", "1'HALF' 1 2 3\n5'X' 1 2\n");
        folder.Write("other.lby", "5'X' 1 2 3");
    }
};

TEST_P(StandardLibraryFailure, IsReportedAndAnotherFileLoadedFromTheFirstSlot) {
    prompts.OpensFile("other.lby");
    EXPECT_EQ(Load(GetParam().file), LibraryLoad::loaded);
    EXPECT_THAT(prompts.messages, ElementsAre(Message{GetParam().message, ""}));
    const FilePrompt prompt = {"Open standard material file", "Material Files (*.lby)|*.lby",
                               "stdmat.lby", "LBY", "."};
    EXPECT_THAT(prompts.filePrompts, ElementsAre(prompt));
    EXPECT_EQ(project.standardLibraryFile, "other.lby");
    EXPECT_EQ(project.standardLibrary[1].name, "X");
    EXPECT_EQ(MaterialCount(project.standardLibrary), 7);
}

TEST_P(StandardLibraryFailure, EndsTheProgramAtOnceWhenThePromptAfterItIsCancelled) {
    prompts.OpensFile("");
    project.changed = true;
    EXPECT_THROW(Load(GetParam().file), ProgramEnd);
    EXPECT_THAT(prompts.Texts(), ElementsAre(GetParam().message, "Cancel pressed aborting load"));
    EXPECT_EQ(prompts.messages.back().buttons, Buttons::ok);
    EXPECT_EQ(project.standardLibraryFile, "");
}

TEST_P(StandardLibraryFailure, IsReportedAgainForTheFileChosen) {
    prompts.OpensFile("missing too.lby").OpensFile("other.lby");
    EXPECT_EQ(Load(GetParam().file), LibraryLoad::loaded);
    EXPECT_THAT(prompts.Texts(),
                ElementsAre(GetParam().message, "Standard material file is missing."));
}

INSTANTIATE_TEST_SUITE_P(
    Named, StandardLibraryFailure,
    testing::Values(Failing{"half.lby", "Standard material file is incorrect version"},
                    Failing{"missing.lby", "Standard material file is missing."},
                    Failing{"no folder/a.lby", "Standard material file. That path doesn't exist."},
                    Failing{"C:\\lib\\a.lby", "Standard material file. That path doesn't exist."}));

TEST_F(StandardLibraryLoading, StopsAfterTheMessageOfAFailureThatNoOtherFileHelps) {
    std::string tooMany;
    for (int number = 1; number <= 94; ++number)
        tooMany += "1'A' 1 2 3\n";
    folder.Write("too many.lby", tooMany);
    folder.Write("overflow.lby", "1e999'A' 1 2 3\n");
    folder.Write("folder/x", "");
    EXPECT_EQ(Load("too many.lby"), LibraryLoad::failed);
    EXPECT_EQ(Load("overflow.lby"), LibraryLoad::failed);
    EXPECT_EQ(Load("folder"), LibraryLoad::failed);
    EXPECT_EQ(Load("/proc/self/mem"), LibraryLoad::failed);
    MakeSocket("socket");
    EXPECT_EQ(Load("socket"), LibraryLoad::failed);
    EXPECT_THAT(prompts.Texts(), ElementsAre("Standard material file error 9 occurred.",
                                             "Standard material file error 6 occurred.",
                                             "Standard material file error 75 occurred.",
                                             "Standard material file error 57 occurred.",
                                             "Standard material file. Drive not available."));
    EXPECT_TRUE(prompts.filePrompts.empty());
}

TEST_F(StandardLibraryLoading, KeepsNothingOfTheLibraryBeforeWhenItStops) {
    std::string tooMany;
    for (int number = 1; number <= 94; ++number)
        tooMany += std::to_string(number) + "'A' 1 2 3\n";
    folder.Write("too many.lby", tooMany);
    EXPECT_EQ(Load("too many.lby"), LibraryLoad::failed);
    EXPECT_FALSE(project.standardLoaded);
    EXPECT_EQ(project.standardLibrary[94].code, 94);
    EXPECT_EQ(project.standardLibrary[100].code, -11);
    folder.Write("overflow.lby", "5'X' 1 2 3\n1e999'A' 1 2 3\n");
    EXPECT_EQ(Load("overflow.lby"), LibraryLoad::failed);
    EXPECT_EQ(project.standardLibrary[1].name, "X");
    EXPECT_EQ(MaterialCount(project.standardLibrary), 1);
    folder.Write("folder/x", "");
    EXPECT_EQ(Load("folder"), LibraryLoad::failed);
    EXPECT_EQ(MaterialCount(project.standardLibrary), 0);
    EXPECT_FALSE(project.standardLoaded);
}

TEST_F(StandardLibraryLoading, TellsOfAWrongVersionBeforeItTellsOfTooManyMaterials) {
    std::string tooMany;
    for (int number = 1; number <= 94; ++number)
        tooMany += "1'A' 1 2 3\n";
    folder.Write("both.lby", tooMany + "no record\n");
    EXPECT_EQ(Load("both.lby"), LibraryLoad::failed);
    EXPECT_THAT(prompts.Texts(), ElementsAre("Standard material file is incorrect version",
                                             "Standard material file error 9 occurred."));
    EXPECT_FALSE(project.standardLoaded);
}

TEST_F(StandardLibraryLoading, TakesALibraryMissingInAFolderBesideTheFileForAMissingFile) {
    folder.Write("house/lib/x", "");
    project.constructionFile = "house/house.con";
    prompts.OpensFile("stdmat.lby");
    Load("lib/gone.lby");
    EXPECT_THAT(prompts.Texts(), ElementsAre("Standard material file is missing."));
}

TEST_F(StandardLibraryLoading, CountsAWrongVersionAsLoaded) {
    folder.Write("wrong.lby", "no library");
    project.standardLoaded = false;
    EXPECT_EQ(Load("wrong.lby"), LibraryLoad::wrongVersion);
    EXPECT_THAT(prompts.messages,
                ElementsAre(Message{"Standard material file is incorrect version", ""}));
    EXPECT_TRUE(project.standardLoaded);
    EXPECT_EQ(project.standardLibraryFile, "wrong.lby");
    EXPECT_EQ(MaterialCount(project.standardLibrary), 6) << "the cavities only";
}

TEST_F(StandardLibraryLoading, ShowsNothingAfterAFileThatGoesWrongLater) {
    folder.Write("wrong.lby", "1'A' 1 2 3\n2'B' 4 5 6\nno record\n");
    EXPECT_EQ(Load("wrong.lby"), LibraryLoad::wrongVersion);
    EXPECT_EQ(MaterialCount(project.standardLibrary), 0);
    EXPECT_EQ(project.standardLibrary[2].name, "B");
    EXPECT_EQ(project.standardLibrary[3].name, "CAVITY Type 3 width = resistance");
}

} // namespace
} // namespace strativo
