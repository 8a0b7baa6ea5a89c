#include "support/ParseText.h"
#include "support/Samples.h"
#include "text/RuntimeError.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace strativo {
namespace {

using testing::Each;
using testing::ElementsAre;

class GlassSection : public testing::Test {
protected:
    GlassSection() {}

    void Parse(std::string_view text) { ParseText(text, project); }
    const GlassType& First() { return project.glassTypes[1]; }
    const GlassType2D& First2D() { return project.glassTypes2D[1]; }

    ScriptedPrompts prompts;
    Project project;
};

TEST_F(GlassSection, HoldsAnOrdinaryGlassType) {
    Parse("!WINDOW = 'CLEAR 6MM'\r\n!TRANSMISSION =\r\n"
          "0.05, 0.8, 0.79, 0.78, 0.77, 0.75, 0.71, 0.64, 0.5, 0.28, 0.0\r\n"
          "!ABSORPTION =\r\n1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11\r\n!END\r\n");
    EXPECT_EQ(First().name, "CLEAR 6MM");
    EXPECT_THAT(Values(First().transmission), ElementsAre(0.05F, 0.8F, 0.79F, 0.78F, 0.77F, 0.75F,
                                                          0.71F, 0.64F, 0.5F, 0.28F, 0.0F));
    EXPECT_THAT(Values(First().absorption), ElementsAre(1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11));
    EXPECT_FALSE(First().hasDiffusion);
    EXPECT_EQ(project.currentGlassType, 1);
}

TEST_F(GlassSection, HasADiffusionTableWhenThereIsOne) {
    Parse("!WINDOW = 'G'\n!DIFFUSION =\n1 2 3 4 5 6 7 8 9 10 11\n!END\n");
    EXPECT_TRUE(First().hasDiffusion);
    EXPECT_THAT(Values(First().diffusion), ElementsAre(1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11));
}

TEST_F(GlassSection, HoldsATwoDimensionalGlassType) {
    std::string text = "!WINDOW 2D = 'OVERHANG'\n!TRANSMISSION =\n";
    for (int row = 1; row <= 19; ++row) {
        for (int column = 1; column <= 20; ++column)
            text += std::to_string(row * 100 + column) + ", ";
        text += '\n';
    }
    Parse(text + " }\n!DIFFUSION =\n7\n");
    EXPECT_EQ(First2D().name, "OVERHANG");
    EXPECT_EQ(First2D().transmission[1][1], 101);
    EXPECT_EQ(First2D().transmission[1][19], 119) << "the twentieth is ignored";
    EXPECT_EQ(First2D().transmission[19][19], 1919);
    EXPECT_EQ(First2D().diffusion[1][1], 7);
    EXPECT_TRUE(First2D().hasDiffusion);
    EXPECT_EQ(First().name, "");
}

TEST_F(GlassSection, ReadsTwoDimensionalAbsorption) {
    Parse("!WINDOW 2D = 'H'\n!ABSORPTION =\n5\n6\n");
    EXPECT_EQ(First2D().absorption[1][1], 5);
    EXPECT_EQ(First2D().absorption[2][1], 6);
    EXPECT_EQ(First2D().absorption[3][1], 0);
}

TEST_F(GlassSection, IsTwoDimensionalForANameWith2D) {
    Parse("!WINDOW = 'TYPE 2D'\n");
    EXPECT_EQ(First2D().name, "TYPE 2D");
    EXPECT_EQ(First().name, "");
}

TEST_F(GlassSection, IgnoresFurtherNumbers) {
    Parse("!WINDOW = 'G'\n!TRANS\n1 2 3 4 5 6 7 8 9 10 11 12 13\n");
    EXPECT_EQ(First().transmission[11], 11);
}

TEST_F(GlassSection, KeepsOldValuesWhereNumbersAreMissing) {
    Parse("!WINDOW = 'G'\n!TRANS\n1 2 3 4 5 6 7 8 9 10 11\n!TRANS\n21 22\n!ABSORP\n\n!DIFFU");
    EXPECT_THAT(Values(First().transmission), ElementsAre(21, 22, 3, 4, 5, 6, 7, 8, 9, 10, 11));
    EXPECT_THAT(Values(First().absorption), Each(0.0F));
    EXPECT_TRUE(First().hasDiffusion);
}

TEST_F(GlassSection, CountsNumericPiecesOnly) {
    Parse("!WINDOW = 'G'\n!TRANS\n  a 1,  b 2,5 ,3 0x10 4,, nan inf 1e 1e+ +.5,\t5. -1e1, * 7\n");
    EXPECT_THAT(Values(First().transmission), ElementsAre(1, 0.5F, 5, -10, 7, 0, 0, 0, 0, 0, 0));
}

TEST_F(GlassSection, ReadsTableLinesNeitherAsKeywordsNorAsComments) {
    Parse("!WINDOW = 'G'\n!TRANS\n!END * 5\n!ABSORP\n!EOF 6\n!DIFFU\n!WINDOW = 'X' 7\n!END\n");
    EXPECT_EQ(First().transmission[1], 5);
    EXPECT_EQ(First().absorption[1], 6);
    EXPECT_EQ(First().diffusion[1], 7);
    EXPECT_TRUE(project.comments.noSection.empty());
}

TEST_F(GlassSection, FailsWithAnOverflowForAValueThatNo32BitFloatHolds) {
    for (const char* value : {"1e39", "1e999", "-1e39,"}) {
        try {
            Parse("!WINDOW = 'G'\n!TRANS\n" + std::string(value));
            ADD_FAILURE() << value;
        } catch (const RuntimeError& error) {
            EXPECT_EQ(error.Number(), ErrorNumber::overflow) << value;
        }
    }
}

TEST_F(GlassSection, AddsASecondTypeForANameThatIsThereAlready) {
    Parse("!WINDOW = 'CLEAR'\n!END\n!WINDOW = 'CLEAR'\n!END\n");
    EXPECT_EQ(project.glassTypes.Size(), 2);
    EXPECT_EQ(project.glassTypes[2].name, "CLEAR");
    EXPECT_EQ(project.currentGlassType, 2);
}

TEST_F(GlassSection, IsDroppedSilentlyForANameWithASlashOrABrace) {
    Parse("!WINDOW = 'A/B'\n!TRANS\n1 2 3\n!WINDOW = 'A}B'\n!TRANS\n1 2 3\n!WINDOW 2D = 'A/B'\n");
    EXPECT_EQ(project.glassTypes.Size(), 1);
    EXPECT_EQ(First().name, "");
    EXPECT_EQ(First().transmission[1], 0);
    EXPECT_EQ(First2D().name, "");
}

TEST_F(GlassSection, KeepsANameWithAnUnderscore) {
    Parse("!WINDOW = 'CLEAR_4'\n!END\n");
    EXPECT_EQ(First().name, "CLEAR_4");
}

TEST_F(GlassSection, EndsSoThatLaterTablesAreIgnored) {
    Parse("!TRANS\n9\n!WINDOW = 'G'\n!END\n!TRANS\n9\n");
    EXPECT_EQ(First().transmission[1], 0);
}

TEST_F(GlassSection, WithoutANameLeavesItsSlotToTheNext) {
    Parse("!WINDOW = ''\n!TRANS\n9\n!END\n!WINDOW = 'G'\n!END\n");
    EXPECT_EQ(project.glassTypes.Size(), 1);
    EXPECT_EQ(First().name, "G");
    EXPECT_EQ(First().transmission[1], 0);
}

} // namespace
} // namespace strativo
