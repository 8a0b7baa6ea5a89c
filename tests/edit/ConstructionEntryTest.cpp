#include "calc/LayerList.h"
#include "edit/EditTest.h"

namespace strativo {
namespace {

using AbsorptionEntry = EditTest;

TEST_F(AbsorptionEntry, TakesAnyNumberWithoutMarkingAChange) {
    Add("AB");
    const std::pair<const char*, float> entries[] = {
        {"0.35", 0.35F}, {"7", 7}, {"-2", -2}, {"none", 0}};
    for (const auto& [text, value] : entries) {
        EXPECT_EQ(EnterAbsorption(project, 1, text, prompts), EntryResult::accepted);
        EXPECT_EQ(Current().layers[1].absorption, value);
    }
    EXPECT_FALSE(project.changed);
    EXPECT_EQ(CurrentLayer(), 1);
    EXPECT_TRUE(prompts.calls.empty());
}

TEST_F(AbsorptionEntry, BeyondA32BitFloatIsRefused) {
    Add("A");
    Current().layers.Edit(1).absorption = 0.5F;
    EXPECT_EQ(EnterAbsorption(project, 1, "1e39", prompts), EntryResult::refused);
    EXPECT_EQ(Current().layers[1].absorption, 0.5F);
    EXPECT_EQ(prompts.Texts(),
              std::vector<std::string>{"The number is too large: run-time error 6 occurred."});
}

TEST_F(AbsorptionEntry, InAConstructionWithAGapKeepsTheSlotsAsTheyAreShown) {
    Add("ABC");
    Current().layers.Edit(1) = Layer();
    Click(2);
    const std::string result = ViewLayerList(Current()).result;
    EXPECT_EQ(EnterAbsorption(project, 1, "0.35", prompts), EntryResult::accepted);
    EXPECT_EQ(Current().layers[3].absorption, 0.35F);
    EXPECT_EQ(ViewLayerList(Current()).result, result) << "the window is not shown anew";
}

TEST_F(AbsorptionEntry, DoesNothingWithoutLayers) {
    EXPECT_EQ(EnterAbsorption(project, 1, "1", prompts), EntryResult::nothing);
    Add("");
    EXPECT_EQ(EnterAbsorption(project, 1, "1", prompts), EntryResult::nothing);
}

using NameEntry = EditTest;

TEST_F(NameEntry, IsStoredAsItStandsWithoutMarkingAChange) {
    Add("A");
    EnterName(project, 1, "Wall * '3' !EOF \xE9");
    EXPECT_EQ(Current().name, "Wall * '3' !EOF \xE9");
    EXPECT_FALSE(project.changed);
}

TEST_F(NameEntry, HasABlankForEachControlCharacter) {
    Add("A");
    EnterName(project, 1, "one\r\ntwo\tthree\x7F");
    EXPECT_EQ(Current().name, "one  two three ");
}

TEST(CleanEntry, KeepsEveryOtherByte) {
    std::string all;
    for (int code = 32; code < 256; ++code)
        if (code != 127)
            all += static_cast<char>(code);
    EXPECT_EQ(CleanEntry(all), all);
    EXPECT_EQ(CleanEntry(std::string_view("\0\x1F", 2)), "  ");
}

using TypeChange = EditTest;

TEST_F(TypeChange, IsStoredWithoutMarkingAChange) {
    Add("A");
    const std::string before = ViewLayerList(Current()).result;
    ChangeType(project, 1, 1);
    EXPECT_EQ(Current().type, transparentType);
    EXPECT_EQ(ViewLayerList(Current()).result, before);
    ChangeType(project, 1, 0);
    EXPECT_EQ(Current().type, opaqueType);
    EXPECT_FALSE(project.changed);
}

using LineSelection = EditTest;

TEST_F(LineSelection, MakesTheLineCurrentAndTakesOverTheMarks) {
    Add("ABC");
    Current().layers.Edit(2).thickness = 12;
    SelectLine(project, 1, 1, {true, true, false});
    EXPECT_EQ(CurrentLayer(), 2);
    EXPECT_EQ(Marks(), (Layers{1, 2}));
    const LayerListView view = ViewLayerList(Current());
    EXPECT_EQ(view.editThick, "12");
    EXPECT_EQ(view.conName, "B");
    EXPECT_FALSE(project.changed);
}

TEST_F(LineSelection, ClearsTheFieldOnALayerWithoutThickness) {
    Add("AB");
    Current().layers.Edit(2).thickness = 0;
    Click(1);
    EXPECT_EQ(ViewLayerList(Current()).editThick, "100");
    Click(2);
    EXPECT_EQ(ViewLayerList(Current()).editThick, "");
}

TEST_F(LineSelection, StaysWithinTheLines) {
    Add("AB");
    SelectLine(project, 1, 7, {});
    EXPECT_EQ(CurrentLayer(), 2);
    EXPECT_EQ(Marks(), Layers{});
    SelectLine(project, 1, -1, {true});
    EXPECT_EQ(CurrentLayer(), 0);
    EXPECT_EQ(Marks(), Layers{1});
}

// Merely looking at layers must change neither the U-value nor what would be saved.
TEST_F(LineSelection, LeavesEmptySlotsWhereTheyAre) {
    Add("ABC");
    Current().layers.Edit(2) = Layer();
    Current().layers.Edit(3).thickness = 13;
    SelectLine(project, 1, 1, {false, true});
    EXPECT_EQ(Current().layers[3].name, "C");
    EXPECT_EQ(Marks(), Layers{3});
    EXPECT_EQ(CurrentLayer(), 2);
    EXPECT_EQ(Current().window.shownThickness, 13);
    EXPECT_EQ(EnterThickness(project, 1, "20", prompts), EntryResult::accepted);
    EXPECT_EQ(Current().layers[2].name, "C");
    EXPECT_EQ(Current().layers[2].thickness, 20);
}

} // namespace
} // namespace strativo
