#include "edit/GlassCells.h"

#include "edit/GlassTypes.h"
#include "support/ScriptedPrompts.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace strativo {
namespace {

class GlassCells : public testing::Test {
protected:
    GlassCells() {
        AddGlassType(project, "CLEAR");
        project.changed = false;
        profile = OpenProfile(project);
    }
    bool Paste(std::string_view cells) { return PasteCells(project, profile, cells, prompts); }
    std::string Cells() const { return CellsOf(profile.Shown()); }

    ScriptedPrompts prompts;
    Project project;
    GlassProfile profile;
};

constexpr char row[] = "0.05\t0.8\t0.79\t0.78\t0.77\t0.75\t0.71\t0.64\t0.5\t0.28\t0";

TEST_F(GlassCells, FillTheShownPropertyAlone) {
    EXPECT_TRUE(Paste(row));
    EXPECT_EQ(project.said, "Eleven values pasted. Ctrl+Z takes them back");
    EXPECT_EQ(profile.transmission[1], 0.05F);
    EXPECT_EQ(profile.transmission[11], 0);
    EXPECT_EQ(profile.absorption, AngularValues());
    profile.shown = GlassProperty::absorption;
    EXPECT_TRUE(Paste("1\n1\n1\n1\n1\n1\n1\n1\n1\n1\n0.5"));
    EXPECT_EQ(profile.absorption[11], 0.5F);
    EXPECT_EQ(profile.transmission[11], 0);
    EXPECT_TRUE(project.changed);
}

TEST_F(GlassCells, AreReadBackAsTheyWereCopied) {
    Paste(row);
    EXPECT_EQ(Cells(), row);
    project.changed = false;
    EXPECT_TRUE(Paste(Cells()));
    EXPECT_FALSE(project.changed) << "nothing is different";
}

struct FormRow {
    const char* name;
    const char* cells;
};

class GlassCellForms : public GlassCells, public testing::WithParamInterface<FormRow> {};

TEST_P(GlassCellForms, AreTaken) {
    EXPECT_TRUE(Paste(GetParam().cells));
    EXPECT_EQ(Cells(), "0\t0.1\t0.25\t1\t1\t1\t1\t1\t1\t1\t0.5");
    EXPECT_TRUE(prompts.Texts().empty());
}

constexpr FormRow forms[] = {
    {"ARow", "0\t0.1\t0.25\t1\t1\t1\t1\t1\t1\t1\t0.5"},
    {"ARowWithItsLineEnd", "0\t0.1\t0.25\t1\t1\t1\t1\t1\t1\t1\t0.5\r\n"},
    {"AColumn", "0\n0.1\n0.25\n1\n1\n1\n1\n1\n1\n1\n0.5\n"},
    {"AColumnOfWindows", "0\r\n0.1\r\n0.25\r\n1\r\n1\r\n1\r\n1\r\n1\r\n1\r\n1\r\n0.5\r\n"},
    {"DecimalCommas", "0,0\t0,1\t,25\t1,000\t1\t1\t1\t1\t1\t1\t0,5"},
    {"Blanks", " 0\t0.1 \t 0.25\t1\t1\t1\t1\t1\t1\t1\t0.5 "},
    {"Exponents", "0\t1E-1\t2.5e-01\t1\t1\t1\t1\t1\t1\t1\t0.5"},
};

INSTANTIATE_TEST_SUITE_P(Forms, GlassCellForms, testing::ValuesIn(forms),
                         [](const auto& form) { return form.param.name; });

struct RefusedRow {
    const char* name;
    const char* cells;
    const char* message;
};

class RefusedGlassCells : public GlassCells, public testing::WithParamInterface<RefusedRow> {};

TEST_P(RefusedGlassCells, ChangeNothingAndAreTold) {
    Paste(row);
    project.changed = false;
    EXPECT_FALSE(Paste(GetParam().cells));
    EXPECT_THAT(prompts.Texts(), testing::ElementsAre(GetParam().message));
    EXPECT_EQ(Cells(), row);
    EXPECT_FALSE(project.changed);
}

constexpr RefusedRow refused[] = {
    {"Nothing", "", "Eleven numbers are needed, but the clipboard holds 0 cells."},
    {"Ten", "1\t1\t1\t1\t1\t1\t1\t1\t1\t1",
     "Eleven numbers are needed, but the clipboard holds 10 cells."},
    {"Twelve", "1\n1\n1\n1\n1\n1\n1\n1\n1\n1\n1\n1",
     "Eleven numbers are needed, but the clipboard holds 12 cells."},
    {"SemicolonsBetween", "1;1;1;1;1;1;1;1;1;1;1",
     "Eleven numbers are needed, but the clipboard holds 1 cells."},
    {"AnEmptyCell", "1\t1\t1\t1\t\t1\t1\t1\t1\t1\t1", "\"\" is not a number from 0 to 1."},
    {"AWord", "1\t1\t1\t1\tn/a\t1\t1\t1\t1\t1\t1", "\"n/a\" is not a number from 0 to 1."},
    {"AUnit", "1\t1\t1\t1\t80 %\t1\t1\t1\t1\t1\t1", "\"80 %\" is not a number from 0 to 1."},
    {"AboveOne", "1\t1\t1\t1.01\t1\t1\t1\t1\t1\t1\t1", "\"1.01\" is not a number from 0 to 1."},
    {"BelowZero", "-0.1\t1\t1\t1\t1\t1\t1\t1\t1\t1\t1", "\"-0.1\" is not a number from 0 to 1."},
    {"TwoPoints", "1.000,5\t1\t1\t1\t1\t1\t1\t1\t1\t1\t1",
     "\"1.000,5\" is not a number from 0 to 1."},
    {"BeyondAnyNumber", "1e999\t1\t1\t1\t1\t1\t1\t1\t1\t1\t1",
     "\"1e999\" is not a number from 0 to 1."},
    {"NotANumberByName", "nan\t1\t1\t1\t1\t1\t1\t1\t1\t1\t1",
     "\"nan\" is not a number from 0 to 1."},
};

INSTANTIATE_TEST_SUITE_P(Cells, RefusedGlassCells, testing::ValuesIn(refused),
                         [](const auto& cells) { return cells.param.name; });

} // namespace
} // namespace strativo
