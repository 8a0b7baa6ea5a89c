#include "project/ThicknessInFile.h"

#include "edit/ConstructionSlots.h"
#include "files/ConstructionWriter.h"
#include "support/ScriptedPrompts.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace strativo {
namespace {

using testing::HasSubstr;

class ThicknessInFile : public testing::Test {
protected:
    ThicknessInFile() {
        OpenConstructionWindow(project);
        for (const int slot : {1, 2}) {
            Layer& layer = Record().layers.Edit(slot);
            layer.name = "BRICK";
            layer.materialCode = 12;
            layer.conductivity = 0.84F;
        }
        Record().currentLayer = 1;
    }

    Construction& Record() { return project.constructions[1]; }
    std::string Said(const char* entered) {
        project.said.clear();
        EXPECT_EQ(EnterThicknessForFile(project, 1, entered, prompts), EntryResult::accepted);
        return project.said;
    }

    Project project;
    ScriptedPrompts prompts;
};

TEST_F(ThicknessInFile, IsSaidWhereItIsAnother) {
    EXPECT_EQ(Said("12.5"), "12.5 mm will be 13 mm in the construction file");
    EXPECT_THAT(FormatConstructionFile(project), HasSubstr("      0.013      0"));
    EXPECT_EQ(Record().currentLayer, 2);
}

TEST_F(ThicknessInFile, OfTheLastLayerIsSaidToo) {
    Record().currentLayer = 2;
    EXPECT_EQ(Said("100.3"), "100.3 mm will be 100 mm in the construction file");
    EXPECT_EQ(Said("1.2"), "1.2 mm will be 1 mm in the construction file");
    EXPECT_EQ(Said("7.005"), "7.005 mm will be 7 mm in the construction file");
}

TEST_F(ThicknessInFile, WholeMillimetresAreNotWorthAWord) {
    for (const char* entered : {"12", "105.0", "1", "999"})
        EXPECT_EQ(Said(entered), "") << entered;
}

TEST_F(ThicknessInFile, AResistanceHasThreeDecimalsThere) {
    Layer& cavity = Record().layers.Edit(1);
    cavity.materialCode = -3;
    cavity.conductivity = -3;
    EXPECT_EQ(Said("0.18"), "");
    Record().currentLayer = 1;
    EXPECT_EQ(Said("0.1234"), "0.1234 m2 C/W will be 0.123 m2 C/W in the construction file");
    EXPECT_THAT(FormatConstructionFile(project), HasSubstr("      0.000123   0"));
}

TEST_F(ThicknessInFile, OfARefusedEntryIsNotSaid) {
    EXPECT_EQ(EnterThicknessForFile(project, 1, "0.5", prompts), EntryResult::refused);
    EXPECT_EQ(EnterThicknessForFile(project, 7, "12.5", prompts), EntryResult::nothing);
    EXPECT_EQ(project.said, "");
}

} // namespace
} // namespace strativo
