#include "edit/History.h"

#include "edit/ConstructionSlots.h"
#include "edit/EditTest.h"
#include "edit/GlassProfile.h"
#include "edit/GlassTypes.h"
#include "edit/LayerClipboard.h"
#include "edit/LayerDrag.h"
#include "files/GlassImport.h"
#include "files/ProjectSnapshot.h"
#include "project/NewProject.h"

#include <functional>
#include <gmock/gmock.h>
#include <random>

namespace strativo {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

/// Actions as a window performs them, with a history.
class HistoryTest : public EditTest {
protected:
    bool Do(const std::function<void()>& action) {
        history.ActionBegins(project);
        action();
        return history.ActionEnds(project);
    }
    std::optional<HistoryMove> Undo() {
        std::optional<HistoryMove> move;
        Do([&] { move = history.Undo(project); });
        return move;
    }
    std::optional<HistoryMove> Redo() {
        std::optional<HistoryMove> move;
        Do([&] { move = history.Redo(project); });
        return move;
    }
    void Cut() {
        Do([&] { CutLayers(project, prompts); });
    }
    bool Enter(const std::string& thickness) {
        return Do(
            [&] { EnterThickness(project, project.currentConstruction, thickness, prompts); });
    }
    /// As the program does when the content is in the file.
    void Save() {
        Do([&] {
            project.changed = false;
            ++project.contentsSaved;
        });
    }
    void Clean() {
        project.changed = false;
        ++project.contentsReplaced;
        history.ActionBegins(project);
        history.ActionEnds(project);
    }

    History history;
};

TEST_F(HistoryTest, HasNothingToTakeBackAtFirst) {
    EXPECT_FALSE(Undo());
    EXPECT_FALSE(Redo());
    EXPECT_EQ(history.NextUndo(), "");
}

TEST_F(HistoryTest, TakesAThicknessBackWithItsAdvance) {
    Add("ABC");
    Click(2);
    Clean();
    EXPECT_TRUE(Enter("250"));
    EXPECT_EQ(history.NextUndo(), "thickness of B");
    EXPECT_EQ(CurrentLayer(), 3);
    ASSERT_TRUE(Undo());
    EXPECT_EQ(Current().layers[2].thickness, 100);
    EXPECT_EQ(CurrentLayer(), 2);
    EXPECT_EQ(Marks(), Layers{2});
    EXPECT_EQ(Current().window.shownThickness, 100);
    EXPECT_FALSE(project.changed);
    ASSERT_TRUE(Redo());
    EXPECT_EQ(Current().layers[2].thickness, 250);
    EXPECT_EQ(CurrentLayer(), 3);
    EXPECT_EQ(Marks(), Layers{3});
    EXPECT_TRUE(project.changed);
}

TEST_F(HistoryTest, TakesACutBackAndLeavesTheClipboard) {
    Add("ABCD");
    Mark(project, 1, {2, 3}, 3);
    Cut();
    EXPECT_EQ(Names(), "AD");
    EXPECT_EQ(history.NextUndo(), "cut of 2 layers");
    EXPECT_EQ(Undo()->action, "cut of 2 layers");
    EXPECT_EQ(Names(), "ABCD");
    EXPECT_EQ(Marks(), (Layers{2, 3}));
    EXPECT_EQ(CurrentLayer(), 3);
    EXPECT_EQ(ClipNames(), "BC");
    EXPECT_EQ(history.NextRedo(), "cut of 2 layers");
    Redo();
    EXPECT_EQ(Names(), "AD");
}

TEST_F(HistoryTest, NamesWhatWasDone) {
    Add("ABC");
    Click(2);
    Clip("XY");
    const auto name = [&](const std::function<void()>& action) {
        EXPECT_TRUE(Do(action));
        return history.NextUndo();
    };
    EXPECT_EQ(name([&] { PasteLayers(project, prompts); }), "paste of 2 layers");
    EXPECT_EQ(name([&] { PasteLayersBefore(project, prompts); }), "paste of 2 layers");
    Click(1);
    EXPECT_EQ(name([&] { DeleteLayers(project, prompts); }), "deletion of 1 layer");
    EXPECT_EQ(name([&] { EnterAbsorption(project, 1, "0.3", prompts); }), "absorption of B");
    EXPECT_EQ(name([&] { EnterName(project, 1, "Roof"); }), "name of construction 1");
    EXPECT_EQ(name([&] { ChangeType(project, 1, 1); }), "type of construction 1");
    EXPECT_EQ(name([&] { OpenConstructionWindow(project); }), "new construction 2");
    EXPECT_EQ(name([&] { DropMaterial(project, 2, 0, prompts); }), "insertion of X");
    StartLayerDrag(project, 1, 0, true);
    EXPECT_EQ(name([&] { DropLayers(project, 2, 0, prompts); }), "copy of 1 layer");
    EXPECT_EQ(name([&] { RemoveConstruction(project, 2); }), "removal of construction 2");
}

TEST_F(HistoryTest, CountsNoStepForWhatWasRefused) {
    Add("A");
    EXPECT_FALSE(Enter("0.5")) << "less than a millimetre";
    prompts.Answers(Answer::no);
    EXPECT_FALSE(Enter("1001"));
    EXPECT_FALSE(Do([&] { PasteLayers(project, prompts); })) << "nothing to paste";
    EXPECT_FALSE(Do([&] { SelectLine(project, 1, 0, {true}); })) << "only a mark";
    EXPECT_FALSE(Do([&] { CopyLayers(project, prompts); }));
    EXPECT_FALSE(Do([&] { StartLayerDrag(project, 1, 0, false); }));
    EXPECT_FALSE(Do([&] { EnterName(project, 1, "Construction 1"); })) << "the name that it has";
    EXPECT_EQ(history.Length(), 0);
}

TEST_F(HistoryTest, CountsNoStepForADeletionThatOnlySetsTheFlag) {
    Add("AB");
    Mark(project, 1, {}, 1);
    Clean();
    EXPECT_FALSE(Do([&] { DeleteLayers(project, prompts); }));
    EXPECT_TRUE(project.changed);
}

TEST_F(HistoryTest, TakesAMoveBetweenConstructionsBackAsOneStep) {
    const int from = Add("ABC");
    const int to = Add("XY");
    ActivateConstruction(project, from);
    Mark(project, from, {1, 3}, 1);
    Clean();
    StartLayerDrag(project, from, 0, false);
    EXPECT_TRUE(Do([&] { DropLayers(project, to, 1, prompts); }));
    EXPECT_EQ(LayerNames(project, to), "XACY");
    EXPECT_EQ(history.NextUndo(), "move of 2 layers");
    const auto move = Undo();
    EXPECT_EQ(LayerNames(project, from), "ABC");
    EXPECT_EQ(LayerNames(project, to), "XY");
    EXPECT_EQ(project.currentConstruction, from);
    EXPECT_EQ(move->construction, from);
    EXPECT_EQ(project.windowToActivate, from);
    EXPECT_EQ(Redo()->construction, to);
    EXPECT_EQ(LayerNames(project, from), "B");
    EXPECT_EQ(LayerNames(project, to), "XACY");
}

TEST_F(HistoryTest, BringsARemovedConstructionBackAsItWas) {
    Add("AB");
    const int removed = Add("CD");
    project.constructions[removed].type = transparentType;
    project.comments.constructions.Add(removed, "of the second");
    const unsigned opening = project.constructions[removed].window.opening;
    Clean();
    Do([&] { RemoveConstruction(project, removed); });
    EXPECT_EQ(project.currentConstruction, 1);
    EXPECT_TRUE(project.changed);
    EXPECT_EQ(Undo()->construction, removed);
    EXPECT_EQ(LayerNames(project, removed), "CD");
    EXPECT_TRUE(InUse(project, removed));
    EXPECT_EQ(project.constructions[removed].type, transparentType);
    EXPECT_EQ(project.constructions[removed].window.opening, opening);
    EXPECT_THAT(project.comments.constructions.Of(removed), ElementsAre("of the second"));
    EXPECT_EQ(project.constructionCount, 2);
    EXPECT_EQ(project.currentConstruction, removed);
    EXPECT_FALSE(project.changed);
    EXPECT_EQ(Redo()->construction, 1) << "the one that is left";
    EXPECT_FALSE(InUse(project, removed));
    EXPECT_THAT(project.comments.constructions.Of(removed), IsEmpty());
}

TEST_F(HistoryTest, ShowsAConstructionThatComesBackBesideTheCurrentOne) {
    const int removed = Add("AB");
    const int current = Add("CD");
    Clean();
    ASSERT_EQ(project.currentConstruction, current);
    Do([&] { RemoveConstruction(project, removed); });
    ASSERT_EQ(project.currentConstruction, current);
    EXPECT_EQ(Undo()->construction, removed);
    EXPECT_EQ(Redo()->construction, current);
}

TEST_F(HistoryTest, TakesANewConstructionAwayAndBringsItBack) {
    Add("AB");
    Clean();
    Do([&] { OpenConstructionWindow(project); });
    Do([&] { EnterName(project, 2, "Roof"); });
    Undo();
    Undo();
    EXPECT_EQ(project.constructions.Size(), 1);
    EXPECT_EQ(project.constructionCount, 1);
    EXPECT_EQ(project.currentConstruction, 1);
    Redo();
    EXPECT_EQ(project.constructions[2].name, "Construction 2");
    Redo();
    EXPECT_EQ(project.constructions[2].name, "Roof");
    EXPECT_EQ(project.constructionCount, 2);
    EXPECT_FALSE(Redo());
}

TEST_F(HistoryTest, BringsBackThatTheUserLibraryIsNeeded) {
    Add("A");
    Clip("U");
    project.clipboard[1].library = userLibraryNumber;
    Do([&] { PasteLayers(project, prompts); });
    EXPECT_TRUE(project.userLibraryNeeded);
    Undo();
    EXPECT_FALSE(project.userLibraryNeeded);
    Redo();
    EXPECT_TRUE(project.userLibraryNeeded);
}

TEST_F(HistoryTest, DropsWhatCouldBeDoneAgainWhenSomethingElseIsDone) {
    Add("A");
    Enter("10");
    Enter("20");
    Undo();
    EXPECT_EQ(history.NextRedo(), "thickness of A");
    Do([&] { EnterName(project, 1, "Roof"); });
    EXPECT_EQ(history.NextRedo(), "");
    Undo();
    Undo();
    EXPECT_EQ(Current().layers[1].thickness, 100);
}

TEST_F(HistoryTest, EndsWithANewProjectAndWithAFileRead) {
    Add("A");
    Enter("10");
    prompts.Answers(Answer::yes);
    Do([&] { NewProject(project, prompts); });
    EXPECT_FALSE(Undo());
    EXPECT_EQ(history.Bytes(), 0);
}

TEST_F(HistoryTest, LeavesTheFlagAsItWas) {
    Add("A");
    Clean();
    Do([&] { EnterName(project, 1, "Roof"); });
    EXPECT_FALSE(project.changed) << "a name sets no flag";
    Enter("10");
    EXPECT_TRUE(project.changed);
    Undo();
    EXPECT_FALSE(project.changed);
    Redo();
    EXPECT_TRUE(project.changed);
}

TEST_F(HistoryTest, CountsAsChangedWhenItWasSavedMeanwhile) {
    Add("A");
    Clean();
    Enter("10");
    Save();
    Undo();
    EXPECT_TRUE(project.changed) << "the file holds the 10";
    Redo();
    EXPECT_FALSE(project.changed) << "the content of the file";
    Undo();
    Save();
    Redo();
    EXPECT_TRUE(project.changed);
    Undo();
    EXPECT_FALSE(project.changed);
}

TEST_F(HistoryTest, CountsAsUnchangedWhenTheContentIsThatOfTheFile) {
    Add("A");
    Clean();
    Enter("10");
    Enter("100");
    EXPECT_TRUE(project.changed) << "by hand";
    Enter("30");
    Undo();
    EXPECT_FALSE(project.changed) << "though it counted as changed then";
}

TEST_F(HistoryTest, TakesWorkThatWasNeverInAFileForChanged) {
    Add("A");
    project.changed = true; // as after a recovery
    ++project.contentsReplaced;
    Do([] {});
    Enter("10");
    Undo();
    EXPECT_TRUE(project.changed);
}

class GlassHistory : public HistoryTest {
protected:
    GlassHistory() {
        AddGlassType(project, "CLEAR");
        AddGlassType(project, "GREY");
        Clean();
    }
};

TEST_F(GlassHistory, TakesADeletionBack) {
    project.comments.glassTypes.Add(1, "of the first");
    prompts.Answers(Answer::yes);
    EXPECT_TRUE(Do([&] { DeleteGlassType(project, "CLEAR", prompts); }));
    EXPECT_EQ(history.NextUndo(), "deletion of glass type CLEAR");
    const auto move = Undo();
    EXPECT_TRUE(move->glassTypes);
    EXPECT_EQ(move->construction, 0);
    EXPECT_THAT(GlassTypeNames(project), ElementsAre("CLEAR", "GREY"));
    EXPECT_FALSE(project.changed);
    Redo();
    EXPECT_THAT(GlassTypeNames(project), ElementsAre("GREY"));
}

TEST_F(GlassHistory, TakesAnAcceptedProfileBack) {
    FindGlassType(project, "GREY");
    EXPECT_TRUE(Do([&] {
        GlassProfile profile = OpenProfile(project);
        profile.transmission[3] = 0.5F;
        AcceptProfile(project, profile, "GREEN", prompts);
    }));
    EXPECT_EQ(history.NextUndo(), "change of glass type GREEN");
    Undo();
    EXPECT_EQ(project.glassTypes[2].name, "GREY");
    EXPECT_EQ(project.glassTypes[2].transmission[3], 0);
}

TEST_F(GlassHistory, CountsNoStepForATypeThatWasNotAdded) {
    EXPECT_FALSE(Do([&] {
        AddGlassType(project, "");
        CancelProfile(project);
    }));
    EXPECT_TRUE(Do([&] {
        AddGlassType(project, "");
        AcceptProfile(project, OpenProfile(project), "BLUE", prompts);
    }));
    EXPECT_EQ(history.NextUndo(), "new glass type BLUE");
    Undo();
    EXPECT_THAT(GlassTypeNames(project), ElementsAre("CLEAR", "GREY"));
    Redo();
    EXPECT_THAT(GlassTypeNames(project), ElementsAre("CLEAR", "GREY", "BLUE"));
}

TEST_F(GlassHistory, TakesAnImportBackWithItsComments) {
    TemporaryFolder folder;
    folder.Write("from.con", "glass * head\n!WINDOW = 'BLUE' * of blue\n!TRANS\n0.5\n!END\n"
                             "!WINDOW 2D = 'TWO' * of two\n");
    const std::uint64_t before = ContentDigest(project);
    prompts.OpensFile("from.con");
    EXPECT_TRUE(Do([&] { ImportGlassDefinitions(project, prompts); }));
    EXPECT_EQ(history.NextUndo(), "import of 2 glass types");
    EXPECT_THAT(project.comments.fileHead, ElementsAre(" head"));
    const std::uint64_t after = ContentDigest(project);
    EXPECT_NE(after, before);
    Undo();
    EXPECT_EQ(ContentDigest(project), before);
    EXPECT_EQ(project.glassSectionsRead + project.glassSectionsRead2D, 0);
    Redo();
    EXPECT_EQ(ContentDigest(project), after);
}

TEST_F(HistoryTest, KeepsAHundredStepsWhateverTheyTake) {
    history = History(History::Limits{1, 100});
    Add("A");
    Clean();
    for (int i = 0; i < 130; ++i)
        Enter(std::to_string(i + 1));
    EXPECT_EQ(history.Length(), 100);
    while (Undo()) {
    }
    EXPECT_EQ(Current().layers[1].thickness, 30);
    EXPECT_TRUE(project.changed) << "what was before is gone";
}

TEST_F(HistoryTest, KeepsMoreStepsAsLongAsThereIsMemory) {
    Add("ABCDE");
    Clean();
    for (int i = 0; i < 1000; ++i)
        Enter(std::to_string(i + 1));
    EXPECT_EQ(history.Length(), 1000);
    EXPECT_LT(history.Bytes(), std::size_t{2} << 20);
    while (Undo()) {
    }
    EXPECT_EQ(Current().layers[1].thickness, 100);
    EXPECT_FALSE(project.changed);
}

/// What an action may have changed: content, and what a construction's window shows of it.
struct Seen {
    std::uint64_t content = 0;
    std::vector<std::vector<int>> marks;
    std::vector<int> currentLayers;
    int currentConstruction = 0;
    bool userLibraryNeeded = false;

    bool operator==(const Seen&) const = default;
};

Seen SeenOf(const Project& project) {
    Seen seen{
        ContentDigest(project), {}, {}, project.currentConstruction, project.userLibraryNeeded};
    for (const int number : ConstructionsInUse(project)) {
        seen.marks.push_back(MarkedLayers(project, number));
        seen.currentLayers.push_back(project.constructions[number].currentLayer);
    }
    return seen;
}

/// Any sequence of edits, saved in the middle.
class RandomHistory : public HistoryTest, public testing::WithParamInterface<unsigned> {
protected:
    int Below(int limit) { return static_cast<int>(dice() % static_cast<unsigned>(limit)); }
    RandomHistory() {
        Add("ABCDE");
        Add("VWXYZ");
        Clean();
    }
    int AnyConstruction() {
        std::vector<int> numbers;
        for (const int number : ConstructionsInUse(project))
            numbers.push_back(number);
        return numbers.empty()
                   ? 0
                   : numbers[static_cast<std::size_t>(Below(static_cast<int>(numbers.size())))];
    }
    void Edit(int number) {
        switch (Below(13)) {
        case 0:
            return OpenConstructionWindow(project);
        case 1:
            return project.constructionCount > 2 ? RemoveConstruction(project, number) : void();
        case 2:
            return CutLayers(project, prompts);
        case 3:
            return DeleteLayers(project, prompts);
        case 4:
            return PasteLayers(project, prompts);
        case 5:
            return PasteLayersBefore(project, prompts);
        case 6:
            return EnterName(project, number, std::to_string(Below(5)));
        case 7:
            return ChangeType(project, number, Below(2));
        case 8:
            return static_cast<void>(EnterAbsorption(project, number, "0.5", prompts));
        case 9:
            return AddGlassType(project, std::string(1, static_cast<char>('A' + Below(9))));
        case 10:
            return DropLayers(project, AnyConstruction(), Below(16), prompts);
        case 11:
            return DropMaterial(project, number, Below(16), prompts);
        default:
            return static_cast<void>(
                EnterThickness(project, number, std::to_string(1 + Below(3)), prompts));
        }
    }
    /// A click and a drag begun come before; an edit follows.
    void Act() {
        const int number = AnyConstruction();
        ActivateConstruction(project, number);
        SelectLine(project, number, Below(6), {Below(2) == 0, Below(2) == 0, Below(2) == 0});
        StartLayerDrag(project, number, Below(5), Below(2) == 0);
        if (Below(8) == 0)
            Clip("UVW");
        project.clipboard[1].library = static_cast<std::int16_t>(1 + Below(2));
        const Seen before = SeenOf(project);
        if (Do([&] { Edit(number); }))
            states.push_back(before);
        if (Below(40) == 0)
            Save();
    }

    std::mt19937 dice{GetParam()};
    std::vector<Seen> states; ///< before each step
};

TEST_P(RandomHistory, UndoneToTheStartGivesTheStartAndRedoneTheEnd) {
    for (int i = 0; i < 300; ++i)
        Act();
    const std::uint64_t end = ContentDigest(project);
    ASSERT_EQ(history.Length(), states.size());
    ASSERT_GT(states.size(), 50);
    std::vector<std::uint64_t> redone;
    for (auto state = states.rbegin(); state != states.rend(); ++state) {
        redone.push_back(ContentDigest(project));
        ASSERT_TRUE(Undo());
        ASSERT_EQ(ContentDigest(project), state->content);
        ASSERT_EQ(project.userLibraryNeeded, state->userLibraryNeeded);
    }
    EXPECT_FALSE(Undo());
    for (auto content = redone.rbegin(); content != redone.rend(); ++content) {
        ASSERT_TRUE(Redo());
        ASSERT_EQ(ContentDigest(project), *content);
    }
    EXPECT_EQ(ContentDigest(project), end);
    EXPECT_FALSE(Redo());
}

TEST_P(RandomHistory, TakenBackAtOnceLeavesAllAsItWas) {
    int steps = 0;
    for (int i = 0; i < 300; ++i) {
        const std::size_t before = states.size();
        Act();
        if (states.size() == before || history.NextUndo().empty())
            continue;
        ++steps;
        const Seen after = SeenOf(project);
        // What was copied into another construction is seen there.
        const int concerned = Undo()->construction;
        if (concerned > 0)
            states.back().currentConstruction = concerned;
        ASSERT_TRUE(SeenOf(project) == states.back()) << i;
        Redo();
        ASSERT_TRUE(SeenOf(project) == after) << i;
    }
    EXPECT_GT(steps, 50);
}

INSTANTIATE_TEST_SUITE_P(Seeds, RandomHistory, testing::Range(1U, 21U));

} // namespace
} // namespace strativo
