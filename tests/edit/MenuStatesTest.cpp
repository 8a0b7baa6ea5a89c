#include "edit/MenuStates.h"

#include "calc/Relink.h"
#include "edit/EditTest.h"
#include "edit/LayerClipboard.h"

namespace strativo {
namespace {

constexpr int otherWindow = 0;

class EditMenuTest : public EditTest {
protected:
    /// A letter for each enabled item: Cut, cOpy, Paste, paste Before, Delete.
    std::string Enabled(int active) const {
        const EditMenuState state = EditMenu(project, active);
        return std::string(state.cut ? "C" : "") + (state.copy ? "O" : "")
               + (state.paste ? "P" : "") + (state.pasteBefore ? "B" : "")
               + (state.deleteLayers ? "D" : "");
    }
};

TEST_F(EditMenuTest, OffersCopyOnlyInTheDialog) {
    Clip("X");
    Add("A");
    project.dialogActive = true;
    EXPECT_EQ(Enabled(otherWindow), "O");
}

TEST_F(EditMenuTest, OffersEverythingWithAClipboardAndACurrentLayer) {
    Clip("X");
    Add("A");
    EXPECT_EQ(Enabled(1), "COPBD");
}

TEST_F(EditMenuTest, OffersPasteByTheFirstClipboardEntryAlone) {
    Add("A");
    Clip(".XY");
    EXPECT_EQ(Enabled(1), "COD");
}

TEST_F(EditMenuTest, OffersPasteOnlyAfterEverythingWasCut) {
    Add("A");
    Click(1);
    CutLayers(project, prompts);
    EXPECT_EQ(Enabled(1), "PB");
}

TEST_F(EditMenuTest, OffersCopyByTheCurrentLayerWhateverIsMarked) {
    Add("AB");
    Mark(project, 1, {}, 2);
    EXPECT_EQ(Enabled(1), "COD");
    Mark(project, 1, {1, 2}, 0);
    EXPECT_EQ(Enabled(1), "");
}

TEST_F(EditMenuTest, OffersCopyInAnEmptyConstructionThatWasRead) {
    Add("");
    RelinkLayers(project);
    EXPECT_EQ(Enabled(1), "COD");
}

TEST_F(EditMenuTest, OffersNoDeletionOfLayersBehindTheGlassTypes) {
    Clip("X");
    Add("A");
    EXPECT_EQ(Enabled(otherWindow), "PB");
}

TEST_F(EditMenuTest, OffersPasteAloneWithoutConstruction) {
    EXPECT_EQ(Enabled(1), "");
    Clip("X");
    EXPECT_EQ(Enabled(1), "PB");
}

using FileMenuTest = EditTest;

TEST_F(FileMenuTest, OffersSaveOnlyForAChangedProject) {
    EXPECT_FALSE(FileMenu(project, 1).save);
    project.changed = true;
    EXPECT_TRUE(FileMenu(project, 1).save);
}

TEST_F(FileMenuTest, OffersRemovalForConstructionWindowsOnly) {
    EXPECT_TRUE(FileMenu(project, 1).removeConstruction);
    EXPECT_TRUE(FileMenu(project, 12).removeConstruction);
    EXPECT_FALSE(FileMenu(project, otherWindow).removeConstruction);
}

} // namespace
} // namespace strativo
