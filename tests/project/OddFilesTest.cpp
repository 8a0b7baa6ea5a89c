#include "edit/GlassTypes.h"
#include "project/ReadConstructionFile.h"
#include "support/Samples.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace strativo {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

constexpr char wrongVersion[] = "Command line error\rConstruction file (p) is incorrect version";
constexpr char overflow[] = "Command line error\rConstruction file (p) error 6 occurred.";

struct Row {
    const char* name;
    std::string bytes;
    int constructions;
    std::string message;
};

void PrintTo(const Row& row, std::ostream* out) {
    *out << row.name;
}

std::string RowName(const testing::TestParamInfo<Row>& row) {
    return row.param.name;
}

std::string Part(const std::string& line) {
    return "!CONSTRUCTION 'A'\r\n" + line + "\r\n!END\r\n";
}

class OddFile : public testing::TestWithParam<Row> {
protected:
    OddFile() {
        folder.Write("stdmat.lby", standardLibraryBytes);
        project.standardLibraryFile = "stdmat.lby";
        project.standardLoaded = true;
    }

    void Read(const std::string& bytes) {
        folder.Write("odd file \xe9.con", bytes);
        ReadConstructionFile(project, "odd file \xe9.con", prompts);
    }

    TemporaryFolder folder;
    ScriptedPrompts prompts;
    Project project;
};

TEST_P(OddFile, EndsInItsConstructionsAndMessage) {
    Read(GetParam().bytes);
    EXPECT_EQ(project.constructionCount, GetParam().constructions);
    if (GetParam().message.empty())
        EXPECT_THAT(prompts.messages, IsEmpty());
    else
        EXPECT_THAT(prompts.Texts(), ElementsAre(GetParam().message));
}

INSTANTIATE_TEST_SUITE_P(
    That, OddFile,
    testing::Values(Row{"IsEmpty", "", 0, ""}, Row{"HoldsLineEndsOnly", "\r\n\n\r\r\n", 0, ""},
                    Row{"EndsWithoutALineEnd", "!CONSTRUCTION 'A'\r\n!END", 1, ""},
                    Row{"EndsInTheMiddleOfAKeyword", "!CONSTRUCTION 'A'\r\n!EN", 1, ""},
                    Row{"EndsBehindATableLine", "!WINDOW = 'G'\r\n!TRANSMISSION =", 0, ""},
                    Row{"HasNulBytes", std::string("!CONSTRUCTION 'A\0B'\0\n\0\0", 23), 1, ""},
                    Row{"HasALineOfTenMillionBytes",
                        "!CONSTRUCTION 'A'\n" + std::string(10'000'000, '=') + "\n!END\n", 1, ""},
                    Row{"HasAnUnclosedApostrophe", "!CONSTRUCTION 'ABC\n!END\n", 1, wrongVersion},
                    Row{"HasAPartLineWithoutBlanks", Part("_1=12"), 1, wrongVersion},
                    Row{"HasAPartLineThatEndsAtTheMark", Part("_ 1 ="), 1, wrongVersion},
                    Row{"HasAMaterialNumberBeyond16Bits", Part("_ 1 = 32768 0.1 0"), 1, overflow},
                    Row{"HasAThicknessBeyondADouble", Part("_ 1 = 12 1e999 0"), 1, overflow},
                    Row{"HasAGlassValueBeyond32Bits", "!WINDOW = 'G'\n!TRANS\n4e38\n", 0, overflow},
                    Row{"HasInfinityAndNan", Part("_ 1 = nan inf 0"), 1, ""},
                    Row{"IsABinary",
                        std::string("\x7f"
                                    "ELF\2\1\1\0\xff\xfe",
                                    10),
                        0, ""},
                    Row{"IsWideText", std::string("\xff\xfe!\0C\0O\0N\0", 10), 0, ""}),
    RowName);

using OddFiles = OddFile;

TEST_F(OddFiles, MayHaveLongNames) {
    const std::string longName(200, 'x');
    Read("!CONSTRUCTION '" + longName + "'\n!END\n!WINDOW = '" + longName + "'\n!END\n");
    EXPECT_EQ(project.constructions[1].name, longName);
    EXPECT_THAT(GlassTypeNames(project), ElementsAre(longName));
}

TEST_F(OddFiles, LoseTheSixteenthAndSeventeenthLayerWithBeeps) {
    std::string bytes = "!CONSTRUCTION 'A'\n";
    for (int slot = 1; slot <= 17; ++slot)
        bytes += "_ " + std::to_string(slot) + " = 12 0.1 0\n";
    Read(bytes);
    EXPECT_EQ(LayerCount(project.constructions[1]), 15);
    EXPECT_EQ(prompts.Count("Beep"), 2);
    EXPECT_EQ(project.said, "2 layers not inserted: a construction has at most 15");
}

TEST_F(OddFiles, MayNameALibraryWithTooManyMaterials) {
    std::string library;
    for (int number = 1; number <= 101; ++number)
        library += std::to_string(number) + "'M' 1 2 3\n";
    folder.Write("large.lby", library);
    Read("!MATERIALS FILE = 'large.lby'\n!CONSTRUCTION 'A'\n_ 1 = 12 0.1 0\n!END\n");
    EXPECT_THAT(prompts.Texts(), ElementsAre("Standard material file error 9 occurred."));
    EXPECT_EQ(project.constructionCount, 1);
    EXPECT_FALSE(project.changed);
}

} // namespace
} // namespace strativo
