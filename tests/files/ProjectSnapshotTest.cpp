#include "files/ProjectSnapshot.h"

#include "edit/ConstructionSlots.h"
#include "edit/GlassTypes.h"
#include "support/TestProject.h"

#include <functional>
#include <gmock/gmock.h>
#include <limits>

namespace strativo {
namespace {

using testing::HasSubstr;

std::string EveryByte() {
    std::string text;
    for (int c = 0; c <= 255; ++c)
        text += static_cast<char>(c);
    return text;
}

/// A project with something in every field that a snapshot holds.
class ProjectSnapshot : public testing::Test {
protected:
    ProjectSnapshot() {
        AddConstruction(project, {"BRICK", "PLASTER"});
        AddConstruction(project, {"BLOCK"});
        AddConstruction(project, {});
        RemoveConstruction(project, 2);
        FillConstruction(project.constructions[1]);
        AddGlassType(project, "CLEAR/4 " + EveryByte());
        AddGlassType(project, "TINTED");
        FillTable(project.glassTypes[1].transmission);
        FillTable(project.glassTypes[1].diffusion);
        project.glassTypes[1].hasDiffusion = true;
        project.glassTypes[2].name.clear();
        AddGlassType2D(project, "BLIND");
        for (auto& row : project.glassTypes2D[1].absorption)
            FillTable(row);
        FillLibraries();
        FillComments(project.comments);
        project.constructionFile = "its/own \xFF name\n.con";
        project.stampedFile = project.constructionFile;
        project.stamp = {7, 8, 9, -10};
        project.changed = true;
        project.userLibraryNeeded = true;
        project.shownLibrary = userLibraryNumber;
        project.glassSectionsRead = 3;
        project.glassSectionsRead2D = 4;
    }

    static void FillConstruction(Construction& construction) {
        construction.name = "O'Brien's wall * old !EOF " + EveryByte();
        construction.type = transparentType;
        construction.currentLayer = 2;
        construction.window.edited = true;
        construction.window.shownThickness = 12.5;
        Layer& layer = construction.layers.Edit(1);
        layer.absorption = 0.1F;
        layer.thickness = 1.0 / 3;
        layer.conductivity = -0.0F;
        layer.density = std::numeric_limits<double>::denorm_min();
        layer.materialCode = -11;
        layer.library = userLibraryNumber;
        construction.layers.Edit(2).selected = true;
    }
    template <class Table>
    static void FillTable(Table& table) {
        float value = 0;
        for (float& field : table)
            field = value += 0.07F;
    }
    void FillLibraries() {
        project.standardLibrary[1] = {12, "FACE BRICK", 0.84, 1700, 800};
        project.standardLibrary[2] = {-3, "CAVITY Type 3", -3, 0, 0};
        project.standardLibrary[3].name = endOfLibrary;
        project.userLibrary[1] = {15.5, "CORK \xB5", 0.045, 150, 1880};
        project.userLibrary[2].name = endOfLibrary;
        project.standardLibraryFile = "..\\stdmat.lby";
        project.userLibraryFile = "user.lby";
        project.standardLoaded = true;
        project.userLoaded = true;
    }
    static void FillComments(Comments& comments) {
        comments.fileHead = {"of the file", ""};
        comments.standardLibrary = {"of the standard library"};
        comments.userLibrary = {"of the user library"};
        comments.noSection = {EveryByte()};
        comments.constructions.Add(1, "of a construction");
        comments.constructions.Add(3, "of another");
        comments.glassTypes.Add(1, "of a glass type");
        comments.glassTypes2D.Add(1, "of a two-dimensional one");
        comments.glassTypes2D.Add(9, "of one that there is not");
    }

    std::string Bytes() const { return WriteSnapshot(project, head); }

    ScriptedPrompts prompts;
    Project project;
    const SnapshotHead head = {1700000000, "/home/of \xFF/wall.con", "/lib/stdmat.lby",
                               "/lib/user.lby", 0x8000000000000001U};
};

TEST_F(ProjectSnapshot, GivesBackEveryFieldBitByBit) {
    const std::string bytes = Bytes();
    Project read;
    EXPECT_EQ(ReadSnapshot(bytes, read), head);
    EXPECT_EQ(WriteSnapshot(read, head), bytes);
    EXPECT_EQ(read.constructions[1].name, project.constructions[1].name);
    EXPECT_EQ(read.constructions[1].layers[1], project.constructions[1].layers[1]);
    EXPECT_EQ(read.constructions[1].layers[2], project.constructions[1].layers[2]);
    EXPECT_EQ(read.constructions[2].type, removedType);
    EXPECT_EQ(read.constructionCount, 2);
    EXPECT_EQ(read.currentConstruction, 3);
    EXPECT_EQ(read.glassTypes[1].transmission, project.glassTypes[1].transmission);
    EXPECT_EQ(read.glassTypes2D[1].absorption[19][19], project.glassTypes2D[1].absorption[19][19]);
    EXPECT_EQ(read.userLibrary[1].name, "CORK \xB5");
    EXPECT_EQ(read.comments.noSection, CommentLines{EveryByte()});
    EXPECT_EQ(read.comments.constructions.Of(3), CommentLines{"of another"});
    EXPECT_EQ(read.comments.glassTypes2D.Of(9), CommentLines{"of one that there is not"});
    EXPECT_EQ(read.stamp, project.stamp);
    EXPECT_EQ(read.constructionFile, project.constructionFile);
    EXPECT_TRUE(read.changed);
}

TEST_F(ProjectSnapshot, LeavesScreenClipboardAndSettingsOfTheProjectThatReadsIt) {
    Project read;
    read.clipboard[1].name = "CLIPPED";
    read.helpFile = "help.html";
    read.dialogActive = true;
    ReadSnapshot(Bytes(), read);
    EXPECT_EQ(read.clipboard[1].name, "CLIPPED");
    EXPECT_EQ(read.helpFile, "help.html");
    EXPECT_TRUE(read.dialogActive);
}

TEST_F(ProjectSnapshot, TheNextConstructionTakesTheSlotOfTheRemovedOne) {
    Project read;
    ReadSnapshot(Bytes(), read);
    EXPECT_EQ(FirstFreeConstructionSlot(read), 2);
}

TEST_F(ProjectSnapshot, DroppedCommentsLeaveNoTrace) {
    const std::string bytes = Bytes();
    project.comments.constructions.Add(7, "of the last");
    project.comments.constructions.Drop(7);
    EXPECT_EQ(Bytes(), bytes);
}

TEST_F(ProjectSnapshot, IsRefusedForEachSingleByteThatIsAnother) {
    const std::string bytes = Bytes();
    for (std::size_t at = 0; at < bytes.size(); ++at) {
        std::string damaged = bytes;
        damaged[at] = static_cast<char>(damaged[at] ^ 0x10);
        Project read;
        read.constructionFile = "untouched";
        EXPECT_THROW(ReadSnapshot(damaged, read), DamagedSnapshot) << at;
        EXPECT_EQ(read.constructionFile, "untouched");
    }
}

TEST_F(ProjectSnapshot, IsRefusedWhereverItIsCut) {
    const std::string bytes = Bytes();
    for (std::size_t length = 0; length < bytes.size(); ++length) {
        Project read;
        EXPECT_THROW(ReadSnapshot(std::string_view(bytes).substr(0, length), read),
                     DamagedSnapshot);
    }
    Project read;
    EXPECT_THROW(ReadSnapshot(bytes + '\0', read), DamagedSnapshot);
}

TEST_F(ProjectSnapshot, SaysWhyItIsRefused) {
    const auto reason = [](const std::string& bytes) -> std::string {
        Project read;
        try {
            ReadSnapshot(bytes, read);
        } catch (const DamagedSnapshot& damaged) {
            return damaged.what();
        }
        return "";
    };
    std::string otherVersion = Bytes();
    otherVersion[otherVersion.find('\n') + 1] = 2;
    EXPECT_THAT(reason(otherVersion), HasSubstr("another version"));
    EXPECT_THAT(reason("!CONSTRUCTION 'A'\r\n"), HasSubstr("no recovery copy"));
    EXPECT_THAT(reason(Bytes() + "x"), HasSubstr("not those that were written"));
}

/// A snapshot with a correct digest whose content no project can have produced.
TEST_F(ProjectSnapshot, IsRefusedWhenItHoldsWhatNoProjectCan) {
    const std::vector<std::function<void(Project&)>> impossible = {
        [](Project& made) { made.constructions[1].currentLayer = 16; },
        [](Project& made) { made.constructions[1].type = removedType; },
        [](Project& made) { made.constructions[1].layers.Edit(1).library = 3; },
        [](Project& made) { made.constructions[1].layers.Edit(1).name.clear(); },
        [](Project& made) {
            made.constructions[1].layers.Edit(1).thickness =
                std::numeric_limits<double>::infinity();
        },
        [](Project& made) { made.currentConstruction = 2; },
        [](Project& made) { made.currentGlassType = 9; },
        [](Project& made) { made.currentGlassType2D = 0; },
        [](Project& made) { made.shownLibrary = 3; },
        [](Project& made) { made.glassSectionsRead = -1; },
    };
    for (const auto& spoil : impossible) {
        Project made = project;
        spoil(made);
        Project read;
        EXPECT_THROW(ReadSnapshot(WriteSnapshot(made, head), read), DamagedSnapshot);
    }
}

TEST_F(ProjectSnapshot, ContentDiffersForEachEditThatAFileWouldShow) {
    const std::vector<std::function<void(Project&)>> edits = {
        [](Project& edited) { edited.constructions[1].name += "x"; },
        [](Project& edited) { edited.constructions[3].type = transparentType; },
        [](Project& edited) { edited.constructions[1].layers.Edit(1).absorption = 0.2F; },
        [](Project& edited) { edited.constructions[1].layers.Edit(2).thickness += 1e-9; },
        [](Project& edited) { RemoveConstruction(edited, 3); },
        [](Project& edited) { edited.glassTypes[1].diffusion[11] += 0.01F; },
        [](Project& edited) { edited.glassTypes2D[1].name.clear(); },
        [](Project& edited) { edited.comments.fileHead.pop_back(); },
        [](Project& edited) { edited.comments.constructions.Add(1, "more"); },
        [](Project& edited) { edited.comments.glassTypes.Drop(1); },
        [](Project& edited) { edited.standardLibraryFile = "other.lby"; },
        [](Project& edited) { edited.userLoaded = false; },
    };
    for (const auto& edit : edits) {
        Project edited = project;
        edit(edited);
        EXPECT_NE(ContentBytes(edited), ContentBytes(project));
        EXPECT_NE(ContentDigest(edited), ContentDigest(project));
    }
}

TEST_F(ProjectSnapshot, ContentIsTheSameForWhatNoFileShows) {
    const std::vector<std::function<void(Project&)>> actions = {
        [](Project& other) { other.constructions[1].currentLayer = 1; },
        [](Project& other) { other.constructions[1].layers.Edit(2).selected = false; },
        [](Project& other) { other.currentConstruction = 1; },
        [](Project& other) { other.changed = false; },
        [](Project& other) { other.constructions[2].name = "of a removed one"; },
        [](Project& other) { AddGlassType(other, ""); },
        [](Project& other) { other.constructionFile = "other.con"; },
    };
    for (const auto& act : actions) {
        Project other = project;
        act(other);
        EXPECT_EQ(ContentBytes(other), ContentBytes(project));
        EXPECT_EQ(ContentDigest(other), ContentDigest(project));
    }
}

TEST(DigestOf, IsTheSameAtEveryTime) {
    EXPECT_EQ(DigestOf(""), 0U);
    EXPECT_EQ(DigestOf(std::string(1, '\0')), DigestOf(std::string(1, '\0')));
    EXPECT_NE(DigestOf(std::string(1, '\0')), DigestOf(std::string(2, '\0')));
    EXPECT_EQ(DigestOf("Strativo recovery copy"), 12491553260946496231U);
}

} // namespace
} // namespace strativo
