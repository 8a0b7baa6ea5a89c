#include "project/FileCommands.h"
#include "project/ReadConstructionFile.h"
#include "support/AsNobody.h"
#include "support/Samples.h"
#include "support/SpecialFiles.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/stat.h>

namespace strativo {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

constexpr char halfBytes[] = "!CONSTRUCTION 'Half'\n_ 1 = 12 0.1 0\n_ 2 =34\n!END\n";

struct Failing {
    const char* name;
    const char* path;
    const char* message;
};

void PrintTo(const Failing& failing, std::ostream* out) {
    *out << failing.name;
}

class ReadingFailure : public testing::TestWithParam<Failing> {
protected:
    ReadingFailure() {
        folder.Write("stdmat.lby", standardLibraryBytes);
        project.rememberedLibrary = "stdmat.lby";
        folder.Write("half.con", halfBytes);
        folder.Write("overflow.con", "!CONSTRUCTION 'Half'\n_ 1 = 40000 0.1 0\n");
        folder.Write("folder/x", "");
        EXPECT_EQ(mkfifo("fifo", 0600), 0);
        MakeSocket("socket");
    }

    TemporaryFolder folder;
    ScriptedPrompts prompts;
    Project project;
};

TEST_P(ReadingFailure, IsReportedAsACommandLineErrorForAPathGiven) {
    ReadConstructionFile(project, GetParam().path, prompts);
    const std::string text = "Command line error\r" + std::string(GetParam().message);
    EXPECT_THAT(prompts.messages, ElementsAre(Message{text, ""}));
    EXPECT_EQ(project.constructionFile, "");
}

TEST_P(ReadingFailure, IsReportedPlainlyForAPathAskedFor) {
    prompts.OpensFile(GetParam().path);
    ReadConstructionFile(project, "", prompts);
    EXPECT_THAT(prompts.messages, ElementsAre(Message{GetParam().message, ""}));
    EXPECT_EQ(project.constructionFile, "");
}

std::string RowName(const testing::TestParamInfo<Failing>& row) {
    return row.param.name;
}

INSTANTIATE_TEST_SUITE_P(
    Of, ReadingFailure,
    testing::Values(
        Failing{"BrokenContent", "half.con", "Construction file (p) is incorrect version"},
        Failing{"Overflow", "overflow.con", "Construction file (p) error 6 occurred."},
        Failing{"MissingFile", "missing.con", "Construction file (p) is missing."},
        Failing{"MissingFolder", "no folder/a.con",
                "Construction file (p). That path doesn't exist."},
        Failing{"FileAsFolder", "half.con/a.con",
                "Construction file (p). That path doesn't exist."},
        Failing{"MissingDevice", "socket", "Construction file (p). Drive not available."},
        Failing{"Folder", "folder", "Construction file (p) error 75 occurred."},
        Failing{"Fifo", "fifo", "Construction file (p) error 75 occurred."},
        Failing{"Device", "/dev/zero", "Construction file (p) error 75 occurred."},
        Failing{"InputError", "/proc/self/mem", "Construction file (p) error 57 occurred."}),
    RowName);

using ReadingFailures = ReadingFailure;

TEST_F(ReadingFailures, OfAFileThatMayNotBeReadAreErrorSeventy) {
    ASSERT_EQ(chmod("half.con", 0), 0);
    ASSERT_EQ(chmod(folder.Path().c_str(), 0755), 0);
    AsNobody([&] { ReadConstructionFile(project, "half.con", prompts); });
    EXPECT_THAT(prompts.Texts(),
                ElementsAre("Command line error\rConstruction file (p) error 70 occurred."));
}

TEST_F(ReadingFailures, LeaveWhatWasReadUntitled) {
    ReadConstructionFile(project, "half.con", prompts);
    EXPECT_EQ(project.constructionCount, 1);
    EXPECT_EQ(project.constructions[1].name, "Half");
    EXPECT_EQ(LayerNames(project, 1), "1") << "not linked";
    EXPECT_FALSE(project.changed);
    prompts.SavesFile("");
    EXPECT_FALSE(SaveProject(project, prompts)) << "Save asks for a name";
    EXPECT_EQ(folder.Read("half.con"), halfBytes);
}

TEST_F(ReadingFailures, ActivateTheLastConstructionReadAndListTheMaterialsAnew) {
    folder.Write("two.con", std::string("!CONSTRUCTION 'Whole'\n!END\n") + halfBytes);
    project.selectedMaterial = 2;
    ReadConstructionFile(project, "two.con", prompts);
    EXPECT_EQ(project.windowToActivate, 2);
    EXPECT_EQ(project.selectedMaterial, 0);
    EXPECT_EQ(project.glassTypeList.listings, 1U);
}

TEST_F(ReadingFailures, ActivateNothingWhereNothingWasRead) {
    ReadConstructionFile(project, "missing.con", prompts);
    EXPECT_EQ(project.windowToActivate, 0);
}

TEST_F(ReadingFailures, LeaveTheRemovalOfTheOldConstructionsMarked) {
    AddConstruction(project, {"A"});
    ReadConstructionFile(project, "missing.con", prompts);
    EXPECT_EQ(project.constructionCount, 0);
    EXPECT_TRUE(project.changed);
}

TEST_F(ReadingFailures, TakeTheOldUserLibraryOutOfTheList) {
    project.userLoaded = true;
    project.userLibraryFile = "user.lby";
    ReadConstructionFile(project, "missing.con", prompts);
    EXPECT_FALSE(project.userLoaded);
    EXPECT_EQ(project.userLibraryFile, "");
}

TEST_F(ReadingFailures, LeaveTheNamesToTheLibrariesThatAreLoaded) {
    folder.Write("good.con", "!MATERIALS FILE = 'stdmat.lby'\n");
    folder.Write("bad.con", "!MATERIALS FILE = 'other.lby'\n!MATERIALS USER FILE = 'user.lby'\n"
                            "!WINDOW = 'no end\n");
    ReadConstructionFile(project, "bad.con", prompts);
    EXPECT_EQ(project.standardLibraryFile, singleBlank) << "none is loaded: the remembered default";
    ReadConstructionFile(project, "good.con", prompts);
    ReadConstructionFile(project, "bad.con", prompts);
    EXPECT_EQ(project.standardLibraryFile, "stdmat.lby");
    EXPECT_EQ(project.userLibraryFile, "");
}

TEST_F(ReadingFailures, LeaveTheNameOfALibraryThatWasLoadedMeanwhile) {
    folder.Write("other.lby", "12'OTHER' 1 2 3\n");
    folder.Write("bad.con", "!MATERIALS FILE = 'other.lby'\n!CONSTRUCTION 'A'\n!END\n"
                            "!MATERIALS FILE = 'third.lby'\n!CONSTRUCTION 'no end\n");
    ReadConstructionFile(project, "bad.con", prompts);
    EXPECT_EQ(project.standardLibraryFile, "other.lby");
    EXPECT_EQ(project.standardLibrary[7].name, "OTHER");
    folder.Write("huge.lby", "12'HUGE' 1e39 2 3\n");
    folder.Write("huge.con", "!MATERIALS FILE = 'huge.lby'\n!CONSTRUCTION 'A'\n_ 1 = 12 0.1 0\n");
    ReadConstructionFile(project, "huge.con", prompts);
    EXPECT_EQ(prompts.Texts().back(),
              "Command line error\rConstruction file (p) error 6 occurred.");
    EXPECT_EQ(project.standardLibraryFile, "huge.lby") << "it failed after its library was loaded";
}

TEST_F(ReadingFailures, DoNotIncludeACancelledPrompt) {
    AddConstruction(project, {"A"});
    project.userLoaded = true;
    project.constructionFile = "old.con";
    prompts.OpensFile("");
    ReadConstructionFile(project, "", prompts);
    EXPECT_THAT(prompts.messages, IsEmpty());
    EXPECT_EQ(LayerNames(project, 1), "A");
    EXPECT_TRUE(project.userLoaded);
    EXPECT_EQ(project.constructionFile, "");
}

} // namespace
} // namespace strativo
