#include "edit/ConstructionSlots.h"
#include "files/ConstructionWriter.h"
#include "project/ReadConstructionFile.h"
#include "support/Samples.h"

#include <gtest/gtest.h>
#include <sstream>

namespace strativo {
namespace {

namespace fs = std::filesystem;

const fs::path goldenFolder = fs::path(STRATIVO_SOURCE) / "tests/golden";

/// A desktop that notes messages and beeps line by line.
class NotingPrompts : public ScriptedPrompts {
public:
    Answer ShowMessage(const Message& message) override {
        for (const char c : message.text)
            notes += c == '\r' ? std::string("\\r") : std::string(1, c);
        notes += '\n';
        return ScriptedPrompts::ShowMessage(message);
    }
    void Beep() override { notes += "(beep)\n"; }

    std::string notes;
};

/// Each folder holds input.con with its libraries, the numbers of constructions to remove after
/// reading (if any), the messages of reading and the file that saving then gives, byte for byte.
class GoldenFile : public testing::TestWithParam<std::string> {
protected:
    GoldenFile() {
        fs::copy(goldenFolder / GetParam(), folder.Path());
        project.rememberedLibrary = "stdmat.lby";
    }

    /// Reads the bytes as a file of that name and gives what saving writes then.
    std::string Rewritten(const std::string& name) {
        ReadConstructionFile(project, name, prompts);
        if (fs::exists("remove.txt")) {
            std::istringstream numbers(folder.Read("remove.txt"));
            for (int number = 0; numbers >> number;)
                RemoveConstruction(project, number);
        }
        return FormatConstructionFile(project);
    }

    TemporaryFolder folder;
    NotingPrompts prompts;
    Project project;
};

TEST_P(GoldenFile, IsRewrittenAsExpected) {
    EXPECT_EQ(Rewritten("input.con"), folder.Read("expected.con"));
    EXPECT_EQ(prompts.notes, folder.Read("expected-messages.txt"));
}

TEST_P(GoldenFile, IsRewrittenTheSameASecondTimeCommentsApart) {
    fs::remove("remove.txt");
    Rewritten("input.con");
    const bool readToItsEnd = !project.constructionFile.empty();
    project.comments = Comments();
    const std::string once = FormatConstructionFile(project);
    folder.Write("once.con", once);
    const std::string twice = Rewritten("once.con");
    EXPECT_TRUE(twice == once || !readToItsEnd) << twice;
    folder.Write("twice.con", twice);
    EXPECT_EQ(Rewritten("twice.con"), twice);
}

std::vector<std::string> Cases() {
    std::vector<std::string> names;
    for (const auto& entry : fs::directory_iterator(goldenFolder))
        if (fs::exists(entry.path() / "input.con"))
            names.push_back(entry.path().filename().string());
    std::sort(names.begin(), names.end());
    return names;
}

std::string CaseName(const testing::TestParamInfo<std::string>& row) {
    std::string name = row.param;
    std::replace(name.begin(), name.end(), '-', '_');
    return name;
}

INSTANTIATE_TEST_SUITE_P(Case, GoldenFile, testing::ValuesIn(Cases()), CaseName);

/// The example that comes with the program, in its place beside the libraries.
class ExampleHouse : public testing::Test {
protected:
    ExampleHouse() {
        for (const char* name : {"stdmat.lby", "examples/user.lby", "examples/house.con"})
            folder.Write(name, SourceFile("data/" + std::string(name)));
    }

    std::string Rewritten(const std::string& name) {
        ReadConstructionFile(project, name, prompts);
        return FormatConstructionFile(project);
    }

    TemporaryFolder folder;
    NotingPrompts prompts;
    Project project;
};

TEST_F(ExampleHouse, IsRewrittenAsExpectedWithoutAMessage) {
    EXPECT_EQ(Rewritten("examples/house.con"), SourceFile("tests/golden/house/expected.con"));
    EXPECT_EQ(prompts.notes, "");
    EXPECT_EQ(project.constructionCount, 17);
}

TEST_F(ExampleHouse, LosesItsCommentsInTheSecondSaveAndNothingElse) {
    folder.Write("examples/once.con", Rewritten("examples/house.con"));
    project.comments = Comments();
    const std::string bare = FormatConstructionFile(project);
    folder.Write("examples/twice.con", Rewritten("examples/once.con"));
    EXPECT_EQ(folder.Read("examples/twice.con"), bare);
    EXPECT_EQ(Rewritten("examples/twice.con"), bare);
}

} // namespace
} // namespace strativo
