#include "calc/LayerList.h"
#include "edit/EditTest.h"
#include "edit/LayerClipboard.h"
#include "edit/LayerDrag.h"
#include "edit/MaterialList.h"
#include "edit/MenuStates.h"
#include "project/FileCommands.h"
#include "project/NewProject.h"

namespace strativo {
namespace {

/// One sitting from start to a new file, step by step, as a user goes through it.
class EditingStory : public EditTest {
protected:
    struct Expected {
        bool changed;
        int construction;
        int layer;
        Layers marks;
        std::string clip;
    };

    EditingStory() {
        project.rememberedLibrary = folder.Write("stdmat.lby", "1'PLASTER' 0.5 1300 1000\r\n"
                                                               "2'FACE BRICK' 0.84 1700 800\r\n"
                                                               "3'INSULATION' 0.04 12 1030\r\n");
        project.userLibrary[1] = {7, "MINE", 0.3, 900, 1000};
        project.userLibrary[2].name = endOfLibrary;
        project.userLoaded = true;
    }

    void ExpectState(const Expected& expected) {
        EXPECT_EQ(project.changed, expected.changed);
        EXPECT_EQ(project.currentConstruction, expected.construction);
        EXPECT_EQ(Current().currentLayer, expected.layer);
        EXPECT_EQ(Marks(), expected.marks);
        EXPECT_EQ(ClipNames(), expected.clip);
    }
    std::string Enabled() const {
        const int active = project.dialogActive ? 0 : project.currentConstruction;
        const EditMenuState menu = EditMenu(project, active);
        return std::string(menu.copy ? "Copy " : "") + (menu.cut ? "Cut " : "")
               + (menu.paste ? "Paste " : "") + (menu.deleteLayers ? "Delete" : "");
    }
    /// Activates the dialog and selects a material in its list.
    void SelectMaterial(const std::string& name) {
        project.dialogActive = true;
        for (int number = 1; number <= MaterialCount(project.standardLibrary); ++number)
            if (project.standardLibrary[number].name == name)
                project.selectedMaterial = number;
        ASSERT_EQ(project.standardLibrary[project.selectedMaterial].name, name);
    }
    void EnterOnMaterial() {
        ASSERT_TRUE(TakeMaterial(project));
        PasteLayersBefore(project, prompts);
    }
    void NewConstructionCommand() {
        NewConstruction(project, prompts);
        project.dialogActive = false;
    }
    void DragMaterialTo(int construction, int row) {
        ASSERT_TRUE(TakeMaterial(project));
        DropMaterial(project, construction, row, prompts);
        project.dialogActive = false;
    }
    std::string Result() { return ViewLayerList(Current()).result; }

    void Starts() {
        project.dialogActive = true;
        ExpectState({false, 1, 0, {}, ""});
        EXPECT_FALSE(InUse(project, 1));
        EXPECT_TRUE(MaterialLines(project).empty());
        EXPECT_EQ(Enabled(), "Copy ");
    }
    void OpensTwoConstructions() {
        NewConstructionCommand();
        ExpectState({false, 1, 0, {}, ""});
        EXPECT_EQ(Result(), "n/a");
        ASSERT_EQ(MaterialLines(project).size(), 9U);
        EXPECT_EQ(project.standardLibrary[1].name, "CAVITY Type 1 NORMAL");
        EXPECT_EQ(project.standardLibrary[9].name, "PLASTER");

        NewConstructionCommand();
        ExpectState({false, 2, 0, {}, ""});
        EXPECT_EQ(Current().name, "Construction 2");
    }
    void EntersMaterials() {
        SelectMaterial("FACE BRICK");
        ASSERT_TRUE(TakeMaterial(project));
        ExpectState({false, 2, 0, {}, "FACE BRICK"});
        EXPECT_EQ(Names(), "");
        EnterOnMaterial();
        ExpectState({true, 2, 1, {1}, "FACE BRICK"});
        SelectMaterial("INSULATION");
        EnterOnMaterial();
        ExpectState({true, 2, 1, {1}, "INSULATION"});
        EXPECT_EQ(Names(), "INSULATIONFACE BRICK");
    }
    void DragsAndTypesAThickness() {
        SelectMaterial("PLASTER");
        DragMaterialTo(1, 0);
        ExpectState({true, 1, 1, {}, "PLASTER"});
        EXPECT_EQ(Names(), "PLASTER");
        EXPECT_EQ(project.windowToActivate, 1);

        ASSERT_TRUE(StartsThicknessEntry("1"));
        EXPECT_EQ(EnterThickness(project, 1, "13", prompts), EntryResult::accepted);
        ExpectState({true, 1, 1, {}, "PLASTER"});
        EXPECT_EQ(Current().layers[1].thickness, 13);
        EXPECT_EQ(Result(), "4.85");
    }
    void CopiesAndPastes() {
        CopyLayers(project, prompts);
        ExpectState({true, 1, 1, {}, "PLASTER"});
        EXPECT_EQ(project.clipboard[1].thickness, 0) << "nothing was marked";
        PasteLayers(project, prompts);
        ExpectState({true, 1, 2, {2}, "PLASTER"});
        EXPECT_EQ(Names(), "PLASTERPLASTER");
        EXPECT_EQ(Current().layers[2].thickness, 0);
        EXPECT_EQ(Result(), "n/a");
    }
    void CutsEverything() {
        Click(1);
        CutLayers(project, prompts);
        ExpectState({true, 1, 1, {1}, "PLASTER"});
        EXPECT_EQ(project.clipboard[1].thickness, 13);
        EXPECT_EQ(Current().layers[1].thickness, 0);
        CutLayers(project, prompts);
        ExpectState({true, 1, 0, {}, "PLASTER"});
        EXPECT_EQ(project.clipboard[1].thickness, 0);
        EXPECT_EQ(Names(), "");
        EXPECT_EQ(Enabled(), "Paste ");
        DeleteLayers(project, prompts);
        ExpectState({true, 1, 0, {}, "PLASTER"});
    }
    void RemovesAndMakesAnew() {
        CloseConstruction(project, 1);
        ExpectState({true, 2, 1, {1}, "PLASTER"});
        EXPECT_EQ(project.constructionCount, 1);

        NewConstructionCommand();
        ExpectState({true, 1, 0, {}, "PLASTER"});
        EXPECT_EQ(Current().name, "Construction 1");
        EXPECT_EQ(Current().type, opaqueType);
        EXPECT_EQ(Names(), "");
    }
    void MakesANewFile() {
        project.comments.fileHead.emplace_back("a note");
        prompts.Answers(Answer::no).Answers(Answer::yes);
        EXPECT_FALSE(NewProject(project, prompts));
        ExpectState({true, 1, 0, {}, "PLASTER"});
        EXPECT_EQ(project.constructionCount, 2);
        EXPECT_EQ(project.comments.fileHead, CommentLines{"a note"});

        EXPECT_TRUE(NewProject(project, prompts));
        ExpectState({false, 1, 0, {}, "PLASTER"});
        EXPECT_EQ(project.constructionCount, 0);
        EXPECT_FALSE(InUse(project, 1));
        EXPECT_TRUE(project.userLoaded);
        EXPECT_EQ(project.userLibrary[1].name, "MINE");
        EXPECT_EQ(project.comments.fileHead, CommentLines{});
    }

    TemporaryFolder folder;
};

TEST_F(EditingStory, GoesFromStartToANewFile) {
    Starts();
    OpensTwoConstructions();
    EntersMaterials();
    DragsAndTypesAThickness();
    CopiesAndPastes();
    CutsEverything();
    RemovesAndMakesAnew();
    MakesANewFile();
    EXPECT_EQ(prompts.Count("Beep"), 0);
}

} // namespace
} // namespace strativo
