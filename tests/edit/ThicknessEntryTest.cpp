#include "calc/LayerList.h"
#include "edit/EditTest.h"

namespace strativo {
namespace {

class ThicknessEntry : public EditTest {
protected:
    EntryResult Enter(std::string_view text) { return EnterThickness(project, 1, text, prompts); }
    double Stored(int layer) const { return project.constructions[1].layers[layer].thickness; }
    LayerListView View() const { return ViewLayerList(project.constructions[1]); }
};

TEST_F(ThicknessEntry, StoresAndMovesOnToTheNextLayerMarkingItAlone) {
    Add("ABC");
    Mark(project, 1, {1, 3}, 1);
    Current().layers.Edit(2).thickness = 50;
    Current().layers.Edit(2).absorption = 0.3F;
    EXPECT_EQ(Enter("105"), EntryResult::accepted);
    EXPECT_EQ(Stored(1), 105);
    EXPECT_EQ(CurrentLayer(), 2);
    EXPECT_EQ(Marks(), Layers{2});
    EXPECT_EQ(View().editThick, "50");
    EXPECT_EQ(View().absorpText, "0.30");
    EXPECT_EQ(View().conName, "B");
    EXPECT_TRUE(project.changed);
    EXPECT_TRUE(Current().window.edited);
}

TEST_F(ThicknessEntry, OnTheLastLineStaysThereAndMarksNothing) {
    Add("AB");
    Click(2);
    EXPECT_EQ(Enter("13"), EntryResult::accepted);
    EXPECT_EQ(CurrentLayer(), 2);
    EXPECT_EQ(Marks(), Layers{});
    EXPECT_EQ(View().editThick, "13");
}

TEST_F(ThicknessEntry, ShowsAnEmptyFieldForANextLayerWithoutThickness) {
    Add("AB");
    Current().layers.Edit(2).thickness = 0;
    Enter("105");
    EXPECT_EQ(View().editThick, "");
}

struct EntryRow {
    const char* name;
    const char* text;
    float conductivity;
    EntryResult result;
    double stored; ///< 100 before the entry
    const char* message = nullptr;
    Answer answer = Answer::ok; ///< ok: nothing is asked
};

class ThicknessEntryRow : public ThicknessEntry, public testing::WithParamInterface<EntryRow> {};

TEST_P(ThicknessEntryRow, IsCheckedAndStored) {
    const EntryRow& row = GetParam();
    Add("A");
    Current().layers.Edit(1).conductivity = row.conductivity;
    if (row.answer != Answer::ok)
        prompts.Answers(row.answer);
    EXPECT_EQ(Enter(row.text), row.result);
    EXPECT_EQ(Stored(1), row.stored);
    EXPECT_EQ(project.changed, row.result == EntryResult::accepted);
    EXPECT_EQ(Current().window.edited, row.result == EntryResult::accepted);
    const std::vector<std::string> expected(row.message != nullptr ? 1 : 0,
                                            row.message != nullptr ? row.message : "");
    EXPECT_EQ(prompts.Texts(), expected);
}

constexpr char tooThin[] = "Thickness is set to less than 1";
constexpr char tooThick[] = "Thickness is Greater than 1m, do you want this value";
constexpr char tooLarge[] = "The number is too large: run-time error 6 occurred.";
constexpr auto accepted = EntryResult::accepted;
constexpr auto refused = EntryResult::refused;

const EntryRow rows[] = {
    {"ExactlyOne", "1", 0.5F, accepted, 1},
    {"ExactlyAThousand", "1000", 0.5F, accepted, 1000},
    {"HalfAMillimetre", "0.5", 0.5F, refused, 100, tooThin},
    {"JustBelowOne", "0.999999999999", 0.5F, refused, 100, tooThin},
    {"Nothing", "", 0.5F, refused, 100, tooThin},
    {"NoNumber", "brick", 0.5F, refused, 100, tooThin},
    {"Negative", "-5", 0.5F, refused, 100, tooThin},
    {"OrdinaryCavity", "0.5", -1, refused, 100, tooThin},
    {"ResistanceOfACavity", "0.5", -3, accepted, 0.5},
    {"ZeroResistance", "0", -3, accepted, 0},
    {"NegativeResistance", "-0.25", -3, accepted, -0.25},
    {"LargeResistanceIsAskedToo", "1500", -3, refused, 100, tooThick, Answer::no},
    {"ThickAndMeant", "1500", 0.5F, accepted, 1500, tooThick, Answer::yes},
    {"ThickAndNotMeant", "1500", 0.5F, refused, 100, tooThick, Answer::no},
    {"ThickAndClosed", "1500", 0.5F, refused, 100, tooThick, Answer::cancel},
    {"JustAboveAThousand", "1000.00000001", 0.5F, refused, 100, tooThick, Answer::no},
    {"StoredAsA32BitFloat", "100.1", 0.5F, accepted, 100.1F},
    {"LeadingNumberOnly", "12mm", 0.5F, accepted, 12},
    {"BeyondA32BitFloat", "1e39", 0.5F, refused, 100, tooLarge},
    {"BeyondAnyNumber", "1e999", 0.5F, refused, 100, tooLarge},
};

INSTANTIATE_TEST_SUITE_P(Values, ThicknessEntryRow, testing::ValuesIn(rows),
                         [](const auto& row) { return row.param.name; });

TEST_F(ThicknessEntry, WarnsWithItsTitles) {
    Add("A");
    prompts.Answers(Answer::no);
    Enter("0");
    Enter("1001");
    ASSERT_EQ(prompts.messages.size(), 2U);
    EXPECT_EQ(prompts.messages[0], (Message{tooThin, "Thickness error"}));
    EXPECT_EQ(prompts.messages[1], YesNoQuestion(tooThick, "Thickness warning", Answer::no));
}

TEST_F(ThicknessEntry, RefusedKeepsTheCurrentLayerAndMarks) {
    Add("AB");
    Click(1);
    Enter("0");
    EXPECT_EQ(CurrentLayer(), 1);
    EXPECT_EQ(Marks(), Layers{1});
}

TEST_F(ThicknessEntry, DoesNothingWithoutLayers) {
    Add("");
    EXPECT_EQ(Enter("105"), EntryResult::nothing);
    Current().currentLayer = 1;
    EXPECT_EQ(Enter("105"), EntryResult::nothing);
    EXPECT_FALSE(project.changed);
    EXPECT_TRUE(prompts.calls.empty());
}

TEST_F(ThicknessEntry, DoesNothingInAWindowThatIsNoConstruction) {
    EXPECT_EQ(Enter("105"), EntryResult::nothing);
    EXPECT_FALSE(project.changed);
}

TEST_F(ThicknessEntry, WithoutCurrentLayerTakesTheFirst) {
    Add("AB");
    Mark(project, 1, {}, 0);
    EXPECT_EQ(Enter("105"), EntryResult::accepted);
    EXPECT_EQ(Stored(1), 105);
}

TEST_F(ThicknessEntry, ClosesUpEmptySlotsFirst) {
    Add("ABC");
    Current().layers.Edit(1) = Layer();
    EXPECT_EQ(Enter("105"), EntryResult::accepted);
    EXPECT_EQ(Current().layers[1].name, "B");
    EXPECT_EQ(Stored(1), 105);
}

TEST_F(ThicknessEntry, RefusedInAConstructionWithAGapLeavesEverythingAsItIsShown) {
    Add("ABC");
    Current().layers.Edit(1) = Layer();
    Click(2);
    const std::string result = View().result;
    prompts.Answers(Answer::no);
    for (const char* text : {"0", "1500", "1e39"}) {
        EXPECT_EQ(Enter(text), EntryResult::refused);
        EXPECT_EQ(View().result, result) << "the window is not shown anew";
        EXPECT_EQ(Current().layers[3].name, "C");
        EXPECT_EQ(CurrentLayer(), 2);
    }
    EXPECT_EQ(Enter("105"), EntryResult::accepted);
    EXPECT_EQ(Names(), "BC");
    EXPECT_EQ(Stored(2), 105);
}

// The field shows whole millimetres, so Enter on what it shows stores those.
TEST_F(ThicknessEntry, OfTheShownTextStoresTheRoundedValue) {
    Add("A");
    Current().layers.Edit(1).thickness = 12.5;
    RefreshLayerList(project.constructions[1]);
    const std::string shown = View().editThick;
    EXPECT_EQ(shown, "13");
    Enter(shown);
    EXPECT_EQ(Stored(1), 13);
}

TEST_F(ThicknessEntry, IsRestoredFromTheStoredValueWhenTheFieldIsLeft) {
    Add("A");
    Construction& construction = Current();
    const std::pair<double, const char*> shown[] = {
        {105, "105"}, {0.25, "0.250"}, {-5, "0.250"}, {0, ""}};
    for (const auto& [thickness, text] : shown) {
        construction.layers.Edit(1).thickness = thickness;
        ShowThickness(construction, ThicknessEvent::restore);
        EXPECT_EQ(View().editThick, text);
    }
    construction.window.shownThickness = 105;
    construction.currentLayer = 0;
    ShowThickness(construction, ThicknessEvent::restore);
    EXPECT_EQ(View().editThick, "");
}

TEST_F(ThicknessEntry, IsLeftAsItIsOverANegativeStoredValue) {
    Add("A");
    Construction& construction = Current();
    construction.layers.Edit(1).conductivity = -3;
    for (const double thickness : {-5.0, -0.25}) {
        construction.layers.Edit(1).thickness = thickness;
        EXPECT_FALSE(ShowThickness(construction, ThicknessEvent::restore))
            << "the field keeps its text";
    }
    for (const double thickness : {0.0, 0.25, 105.0}) {
        construction.layers.Edit(1).thickness = thickness;
        EXPECT_TRUE(ShowThickness(construction, ThicknessEvent::restore));
    }
}

TEST(StartsThicknessEntry, WithADigitOrAPoint) {
    for (const char* key : {"0", "7", "9", "."})
        EXPECT_TRUE(StartsThicknessEntry(key)) << key;
    for (const char* key : {"", "-", ",", "/", ":", "a", "12", "\r"})
        EXPECT_FALSE(StartsThicknessEntry(key)) << key;
}

} // namespace
} // namespace strativo
