#include "calc/CavityTypes.h"
#include "edit/EditTest.h"
#include "edit/LayerClipboard.h"
#include "text/RuntimeError.h"

namespace strativo {
namespace {

class MaterialClipboard : public EditTest {
protected:
    MaterialClipboard() {
        project.standardLibrary[1] = {12, "BRICK", 0.84, 1700, 800};
        AppendCavityEntries(project.standardLibrary, 2);
        project.userLibrary[1] = {7, "MINE", 0.3, 900, 1000};
        project.userLibrary[2].name = endOfLibrary;
        project.selectedMaterial = 1;
    }
};

TEST_F(MaterialClipboard, TakesTheSelectedMaterialAsTheOnlyEntry) {
    Clip("VWXYZ");
    project.clipboard[1].absorption = 0.5F;
    EXPECT_TRUE(TakeMaterial(project));
    EXPECT_EQ(ClipNames(), "BRICK");
    ClipEntry expected;
    expected.name = "BRICK";
    expected.materialCode = 12;
    expected.library = standardLibraryNumber;
    expected.conductivity = 0.84F;
    expected.density = 1700;
    expected.specificHeat = 800;
    EXPECT_EQ(project.clipboard[1], expected);
}

TEST_F(MaterialClipboard, TakesACavityWithItsNegativeCode) {
    project.selectedMaterial = 7;
    EXPECT_TRUE(TakeMaterial(project));
    EXPECT_EQ(project.clipboard[1].name, "CAVITY Type 11 ISO15099");
    EXPECT_EQ(project.clipboard[1].materialCode, -11);
    EXPECT_EQ(project.clipboard[1].conductivity, -11);
}

TEST_F(MaterialClipboard, TakesFromTheShownLibrary) {
    project.shownLibrary = userLibraryNumber;
    EXPECT_TRUE(TakeMaterial(project));
    EXPECT_EQ(project.clipboard[1].name, "MINE");
    EXPECT_EQ(project.clipboard[1].library, userLibraryNumber);
    Add("A");
    PasteLayersBefore(project, prompts);
    EXPECT_EQ(Names(), "MINEA");
    EXPECT_TRUE(project.userLibraryNeeded);
}

TEST_F(MaterialClipboard, StaysAsItWasWithNoMaterialSelected) {
    Clip("XY");
    for (const int selected : {0, -1, 8, 101}) {
        project.selectedMaterial = selected;
        EXPECT_FALSE(TakeMaterial(project)) << selected;
        EXPECT_EQ(ClipNames(), "XY");
    }
    project.dialogActive = true;
    CopyLayers(project, prompts);
    EXPECT_EQ(ClipNames(), "XY");
}

// Unlike the list's own Ctrl+C, which empties the whole clipboard first.
TEST_F(MaterialClipboard, EditCopyInTheDialogClearsEntryTwoOnlyAndKeepsTheAbsorption) {
    Clip("ABC");
    project.clipboard[1].absorption = 0.5F;
    project.dialogActive = true;
    CopyLayers(project, prompts);
    EXPECT_EQ(ClipNames(), "BRICK.C");
    EXPECT_EQ(project.clipboard[1].absorption, 0.5F);
    EXPECT_EQ(project.clipboard[1].thickness, 0);
    project.dialogActive = false;
    Add("A");
    PasteLayers(project, prompts);
    EXPECT_EQ(Names(), "ABRICKC");
}

TEST_F(MaterialClipboard, IsFilledFromTheDialogAlsoWithoutConstruction) {
    project.dialogActive = true;
    CopyLayers(project, prompts);
    EXPECT_EQ(ClipNames(), "BRICK");
    EXPECT_EQ(prompts.Count("Beep"), 0);
}

TEST_F(MaterialClipboard, IsFilledEvenWhenTheConstructionIsFull) {
    Add("ABCDEFGHIJKLMNO");
    EXPECT_TRUE(TakeMaterial(project));
    PasteLayersBefore(project, prompts);
    EXPECT_EQ(prompts.calls, std::vector<std::string>{"Beep"});
    EXPECT_EQ(ClipNames(), "BRICK");
    EXPECT_FALSE(project.changed);
}

TEST_F(MaterialClipboard, RoundsACodeWithAFractionToTheEvenNumber) {
    project.standardLibrary[1].code = 12.5;
    EXPECT_TRUE(TakeMaterial(project));
    EXPECT_EQ(project.clipboard[1].materialCode, 12);
}

TEST_F(MaterialClipboard, IsKeptWhenTheCodeFitsNoLayer) {
    Clip("XY");
    for (const double code : {40000.0, 1e9, -32769.0}) {
        project.standardLibrary[1].code = code;
        EXPECT_THROW(TakeMaterial(project), RuntimeError);
        project.dialogActive = true;
        EXPECT_THROW(CopyLayers(project, prompts), RuntimeError);
        EXPECT_EQ(ClipNames(), "XY");
    }
}

TEST_F(MaterialClipboard, IsKeptWhenTheConductivityFitsNoLayer) {
    Clip("XY");
    project.standardLibrary[1].conductivity = 1e39;
    EXPECT_THROW(TakeMaterial(project), RuntimeError);
    EXPECT_EQ(ClipNames(), "XY");
}

} // namespace
} // namespace strativo
