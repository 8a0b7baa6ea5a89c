#include "edit/GlassProfile.h"

#include "edit/GlassTypes.h"
#include "support/ScriptedPrompts.h"

#include <gtest/gtest.h>

namespace strativo {
namespace {

/// A glass type with transmission 0.5 and absorption 0.25 throughout, in the editor.
class GlassProfileTest : public testing::Test {
protected:
    GlassProfileTest() {
        AddGlassType(project, "CLEAR");
        for (int value = 1; value <= profileColumns; ++value) {
            project.glassTypes[1].transmission[value] = 0.5F;
            project.glassTypes[1].absorption[value] = 0.25F;
        }
        project.glassTypes[1].diffusion[3] = 0.125F;
        prompts.calls.clear();
        profile = OpenProfile(project);
    }
    int& Column() { return project.selectedProfileColumn; }
    float Value(int column) const { return profile.Shown()[column]; }
    void Press(ProfileKey key) { PressProfileKey(project, profile, key); }
    void Type(std::string_view text) { TypeValue(project, profile, text); }

    ScriptedPrompts prompts;
    Project project;
    GlassProfile profile;
};

TEST_F(GlassProfileTest, OpensOnTheTransmissionOfTheCurrentType) {
    EXPECT_EQ(profile.glassType, 1);
    EXPECT_EQ(profile.name, "CLEAR");
    EXPECT_EQ(profile.shown, GlassProperty::transmission);
    EXPECT_EQ(Value(11), 0.5F);
    profile.shown = GlassProperty::absorption;
    EXPECT_EQ(Value(11), 0.25F);
}

TEST_F(GlassProfileTest, KeepsTheSelectedColumnWhenOpenedAgain) {
    EXPECT_EQ(Column(), 0);
    Column() = 7;
    profile = OpenProfile(project);
    EXPECT_EQ(Column(), 7);
    EXPECT_EQ(ColumnText(project, profile), "Transmission at 50 degrees");
}

TEST_F(GlassProfileTest, TakesAValueOutsideTheGraphBackInSteps) {
    project.glassTypes[1].transmission[2] = 1.25F;
    profile = OpenProfile(project);
    Column() = 2;
    Press(ProfileKey::down);
    EXPECT_FLOAT_EQ(Value(2), 1.24F);
    Press(ProfileKey::pageDown);
    EXPECT_FLOAT_EQ(Value(2), 1.14F);
    Press(ProfileKey::up);
    EXPECT_EQ(Value(2), 1) << "limited on this side";
    project.glassTypes[1].transmission[2] = -0.2F;
    profile = OpenProfile(project);
    Column() = 2;
    Press(ProfileKey::up);
    EXPECT_FLOAT_EQ(Value(2), -0.19F);
    Press(ProfileKey::down);
    EXPECT_EQ(Value(2), 0) << "limited on this side";
}

TEST_F(GlassProfileTest, KeepsAValueOutsideTheGraphWhenAnotherIsSelected) {
    project.glassTypes[1].transmission[2] = 1.25F;
    profile = OpenProfile(project);
    for (const ProfileKey key :
         {ProfileKey::left, ProfileKey::right, ProfileKey::home, ProfileKey::end}) {
        Column() = 2;
        Press(key);
        EXPECT_EQ(Value(2), 1.25F);
    }
}

TEST_F(GlassProfileTest, ListsTheValuesThatTheGraphCannotShow) {
    EXPECT_EQ(OutsideText(profile), "");
    AngularValues& values = project.glassTypes[1].transmission;
    values[1] = 1.25F;
    values[2] = 1;
    values[3] = 0;
    values[11] = -0.5F;
    profile = OpenProfile(project);
    EXPECT_EQ(OutsideText(profile),
              "Outside 0 to 1, drawn at the edge: 1.25 diffuse, -0.5 at 90 degrees");
}

struct KeyRow {
    const char* name;
    ProfileKey key;
    int column;
    float before;
    int columnAfter;
    float after;
};

class ProfileKeyRow : public GlassProfileTest, public testing::WithParamInterface<KeyRow> {};

TEST_P(ProfileKeyRow, ChangesTheValueOrTheColumn) {
    const KeyRow& row = GetParam();
    Column() = row.column;
    profile.transmission[row.column] = row.before;
    Press(row.key);
    EXPECT_EQ(Column(), row.columnAfter);
    EXPECT_EQ(Value(row.column), row.after);
    EXPECT_EQ(project.changed, row.before != row.after);
}

constexpr KeyRow keys[] = {
    {"PageUp", ProfileKey::pageUp, 3, 0.5F, 3, 0.6F},
    {"PageUpToTheLimit", ProfileKey::pageUp, 3, 0.95F, 3, 1},
    {"PageUpAtTheLimit", ProfileKey::pageUp, 3, 1, 3, 1},
    {"PageDown", ProfileKey::pageDown, 3, 0.5F, 3, 0.4F},
    {"PageDownToTheLimit", ProfileKey::pageDown, 3, 0.05F, 3, 0},
    {"Up", ProfileKey::up, 3, 0.5F, 3, 0.51F},
    {"UpToTheLimit", ProfileKey::up, 3, 0.995F, 3, 1},
    {"Down", ProfileKey::down, 3, 0.5F, 3, 0.49F},
    {"DownAtTheLimit", ProfileKey::down, 3, 0, 3, 0},
    {"Home", ProfileKey::home, 5, 0.5F, 1, 0.5F},
    {"End", ProfileKey::end, 5, 0.5F, 11, 0.5F},
    {"Left", ProfileKey::left, 5, 0.5F, 4, 0.5F},
    {"LeftOnTheFirst", ProfileKey::left, 1, 0.5F, 1, 0.5F},
    {"Right", ProfileKey::right, 5, 0.5F, 6, 0.5F},
    {"RightOnTheLast", ProfileKey::right, 11, 0.5F, 11, 0.5F},
};

INSTANTIATE_TEST_SUITE_P(Keys, ProfileKeyRow, testing::ValuesIn(keys),
                         [](const auto& row) { return row.param.name; });

TEST_F(GlassProfileTest, SelectsOnlyTheDiffuseColumnByAnyKeyWhenNoneIsSelected) {
    for (const KeyRow& row : keys) {
        Column() = 0;
        Press(row.key);
        EXPECT_EQ(Column(), 1) << row.name;
    }
    EXPECT_EQ(Value(1), 0.5F);
    EXPECT_FALSE(project.changed);
}

TEST_F(GlassProfileTest, ChangesTheShownPropertyOnly) {
    profile.shown = GlassProperty::absorption;
    Column() = 2;
    Press(ProfileKey::pageUp);
    EXPECT_EQ(profile.absorption[2], 0.35F);
    EXPECT_EQ(profile.transmission[2], 0.5F);
}

// Only the working copy has changed, yet the project counts as changed at once.
TEST_F(GlassProfileTest, MarksTheProjectAsChangedWhileOnlyTheCopyChanged) {
    Column() = 2;
    Press(ProfileKey::up);
    EXPECT_TRUE(project.changed);
    EXPECT_EQ(project.glassTypes[1].transmission[2], 0.5F);
}

struct TypedRow {
    const char* name;
    const char* text;
    float stored;
};

class TypedValue : public GlassProfileTest, public testing::WithParamInterface<TypedRow> {};

TEST_P(TypedValue, IsLimitedAndStored) {
    Column() = 4;
    Type(GetParam().text);
    EXPECT_EQ(Value(4), GetParam().stored);
    EXPECT_EQ(project.changed, GetParam().stored != 0.5F);
}

constexpr TypedRow typed[] = {
    {"Fraction", "0.123", 0.123F},
    {"AboveOne", "1.5", 1},
    {"BelowZero", "-0.2", 0},
    {"NoNumber", "glass", 0},
    {"Nothing", "", 0},
    {"LeadingNumber", "0.75 or so", 0.75F},
    {"Same", "0.500", 0.5F},
    {"BeyondAnyNumber", "1e999", 1},
    {"BelowAnyNumber", "-1e999", 0},
    {"TooSmallForAnyNumber", "1e-999", 0},
};

INSTANTIATE_TEST_SUITE_P(Values, TypedValue, testing::ValuesIn(typed),
                         [](const auto& row) { return row.param.name; });

TEST_F(GlassProfileTest, ComparesTypedValuesAsSingles) {
    Column() = 4;
    profile.transmission[4] = 0.123F;
    Type("0.123");
    EXPECT_FALSE(project.changed);
}

TEST_F(GlassProfileTest, TakesNoTypedValueWithoutAColumn) {
    Type("0.1");
    EXPECT_EQ(profile.transmission, project.glassTypes[1].transmission);
    EXPECT_FALSE(project.changed);
}

TEST_F(GlassProfileTest, MovesOnAfterEnterButNotBeyondTheLastColumn) {
    SelectNextColumn(project);
    EXPECT_EQ(Column(), 0);
    Column() = 10;
    SelectNextColumn(project);
    EXPECT_EQ(Column(), 11);
    SelectNextColumn(project);
    EXPECT_EQ(Column(), 11);
}

TEST_F(GlassProfileTest, NamesTheSelectedColumn) {
    EXPECT_EQ(ColumnText(project, profile), "");
    EXPECT_EQ(LevelText(project, profile), "");
    Column() = 1;
    EXPECT_EQ(ColumnText(project, profile), "Diffuse transmission");
    EXPECT_EQ(LevelText(project, profile), "0.500");
    Column() = 5;
    EXPECT_EQ(ColumnText(project, profile), "Transmission at 30 degrees");
    profile.shown = GlassProperty::absorption;
    EXPECT_EQ(ColumnText(project, profile), "Absorption at 30 degrees");
    EXPECT_EQ(LevelText(project, profile), "0.250");
    Column() = 1;
    EXPECT_EQ(ColumnText(project, profile), "Diffuse absorption");
    Column() = 2;
    EXPECT_EQ(ColumnText(project, profile), "Absorption at 0 degrees");
}

class GlassGraph : public GlassProfileTest {
protected:
    void PressAt(double x, double y) { PressGraph(project, profile, graph, x, y); }

    // Column step 400, so that column k lies at 400 k; 0.5 lies at 1500.
    const GraphGeometry graph{5000, 3000};
};

TEST_F(GlassGraph, HasItsGeometryFromTheDrawingArea) {
    EXPECT_DOUBLE_EQ(graph.ColumnStep(), 400);
    EXPECT_DOUBLE_EQ(graph.ColumnX(11), 4400);
    EXPECT_DOUBLE_EQ(graph.ValueY(1), 0);
    EXPECT_DOUBLE_EQ(graph.ValueY(0), 3000);
    EXPECT_DOUBLE_EQ(graph.ValueAt(1500), 0.5);
}

TEST_F(GlassGraph, SelectsTheNearestColumnWithinTheMarker) {
    PressAt(2000, 1500);
    EXPECT_EQ(Column(), 5);
    PressAt(2199, 1550);
    EXPECT_EQ(Column(), 5);
    PressAt(1801, 1450);
    EXPECT_EQ(Column(), 5);
    PressAt(2201, 1500);
    EXPECT_EQ(Column(), 6);
    EXPECT_FALSE(project.changed);
}

TEST_F(GlassGraph, SelectsNothingBesideAMarker) {
    for (const double y : {1449.0, 1551.0}) {
        Column() = 5;
        PressAt(2000, y);
        EXPECT_EQ(Column(), 0) << y;
    }
}

TEST_F(GlassGraph, SelectsTheOutermostColumns) {
    PressAt(201, 1500);
    EXPECT_EQ(Column(), 1);
    PressAt(4599, 1500);
    EXPECT_EQ(Column(), profileColumns);
}

TEST_F(GlassGraph, SelectsNothingBesideTheColumns) {
    for (const double x : {-300.0, 0.0, 199.0, 4601.0, 5000.0}) {
        Column() = 5;
        PressAt(x, 1500);
        EXPECT_EQ(Column(), 0) << x;
    }
}

TEST_F(GlassGraph, DragsTheValueByTheDistanceOfThePointer) {
    PressAt(2000, 1530);
    DragGraph(project, profile, graph, 1230);
    EXPECT_EQ(Value(5), 0.6F);
    EXPECT_TRUE(project.changed);
    EXPECT_EQ(LevelText(project, profile), "0.600");
}

TEST_F(GlassGraph, LimitsTheDraggedValue) {
    PressAt(2000, 1500);
    DragGraph(project, profile, graph, -700);
    EXPECT_EQ(Value(5), 1);
    DragGraph(project, profile, graph, 9000);
    EXPECT_EQ(Value(5), 0);
}

TEST_F(GlassGraph, MarksTheProjectAsChangedAtEachMove) {
    PressAt(2000, 1500);
    DragGraph(project, profile, graph, 1500);
    EXPECT_EQ(Value(5), 0.5F);
    EXPECT_TRUE(project.changed);
}

TEST_F(GlassGraph, DragsNothingWithoutAColumn) {
    PressAt(0, 0);
    DragGraph(project, profile, graph, 100);
    EXPECT_EQ(profile.transmission, project.glassTypes[1].transmission);
    EXPECT_FALSE(project.changed);
}

class GlassProfileOk : public GlassProfileTest {
protected:
    bool Accept(std::string_view name) { return AcceptProfile(project, profile, name, prompts); }
};

TEST_F(GlassProfileOk, StoresNameAndValuesButNotTheDiffusion) {
    profile.transmission[1] = 0.8F;
    profile.absorption[11] = 0.9F;
    EXPECT_TRUE(Accept("BRONZE"));
    const GlassType& type = project.glassTypes[1];
    EXPECT_EQ(type.name, "BRONZE");
    EXPECT_EQ(type.transmission[1], 0.8F);
    EXPECT_EQ(type.absorption[11], 0.9F);
    EXPECT_EQ(type.diffusion[3], 0.125F);
    EXPECT_TRUE(project.changed);
}

TEST_F(GlassProfileOk, MarksAChangeOnlyWhenAnythingDiffers) {
    EXPECT_TRUE(Accept("CLEAR"));
    EXPECT_FALSE(project.changed);
    EXPECT_TRUE(Accept("Clear"));
    EXPECT_TRUE(project.changed);
    project.changed = false;
    profile = OpenProfile(project);
    profile.absorption[2] = 1;
    EXPECT_TRUE(Accept("Clear"));
    EXPECT_TRUE(project.changed);
}

TEST_F(GlassProfileOk, RefusesAnEmptyName) {
    profile.transmission[1] = 0.8F;
    EXPECT_FALSE(Accept(""));
    ASSERT_EQ(prompts.messages.size(), 1U);
    EXPECT_EQ(prompts.messages[0], (Message{"The window type must have a name", ""}));
    EXPECT_EQ(project.glassTypes[1].transmission[1], 0.5F);
}

TEST_F(GlassProfileOk, RefusesTheNameOfAnotherType) {
    AddGlassType(project, "GREY");
    EXPECT_FALSE(Accept("GREY"));
    ASSERT_EQ(prompts.messages.size(), 1U);
    EXPECT_EQ(prompts.messages[0], (Message{"The name of the window must be unique", ""}));
    EXPECT_EQ(project.glassTypes[1].name, "CLEAR");
    EXPECT_TRUE(Accept("grey")) << "letter case counts";
}

TEST_F(GlassProfileOk, RefusesATakenNameForANewType) {
    AddGlassType(project, "");
    profile = OpenProfile(project);
    EXPECT_FALSE(Accept("CLEAR"));
    EXPECT_TRUE(Accept("NEW"));
    EXPECT_EQ(project.glassTypes[2].name, "NEW");
}

TEST_F(GlassProfileOk, KeepsANameThatWasImportedTwice) {
    AddGlassType(project, "CLEAR");
    profile = OpenProfile(project);
    EXPECT_TRUE(Accept("CLEAR"));
    EXPECT_TRUE(prompts.messages.empty());
}

TEST_F(GlassProfileOk, HasABlankForEachControlCharacterOfTheName) {
    EXPECT_TRUE(Accept("A\nB / }"));
    EXPECT_EQ(project.glassTypes[1].name, "A B / }");
}

// Users know Cancel to wipe the mark of every edit, those of layers included.
TEST_F(GlassProfileTest, CancelLeavesTheTypeAndClearsTheMarkOfTheWholeProject) {
    project.changed = true;
    Column() = 2;
    Press(ProfileKey::pageUp);
    CancelProfile(project);
    EXPECT_FALSE(project.changed);
    EXPECT_EQ(project.glassTypes[1].transmission[2], 0.5F);
}

} // namespace
} // namespace strativo
