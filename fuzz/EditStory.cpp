#include "calc/LayerList.h"
#include "edit/ConstructionEntry.h"
#include "edit/ConstructionSlots.h"
#include "edit/GlassProfile.h"
#include "edit/GlassTypes.h"
#include "edit/History.h"
#include "edit/LayerClipboard.h"
#include "edit/LayerDrag.h"
#include "edit/MaterialList.h"
#include "edit/MenuStates.h"
#include "files/ConstructionWriter.h"
#include "fuzz/ProjectSupport.h"
#include "fuzz/Targets.h"
#include "project/FileCommands.h"
#include "project/NewProject.h"

#include <algorithm>
#include <optional>

namespace strativo::fuzz {

namespace {

constexpr char smallFile[] =
    "!CONSTRUCTION 'ONE'\n_ 1 = 12 0.1 0 *\n_ 2 = -3 0.00018 0 *\n!END\n"
    "!CONSTRUCTION 'TWO'\n!TYPE TRANSPARENT\n_ 1 = @15 0.2 0 0.4 *\n!END\n";
constexpr std::string_view oddNumbers[] = {"",     "1e39",   "-1e39", "3.4028235e38", "1e400",
                                           "1000", "1000.1", "0.99",  "-0",           "nan",
                                           ".5",   "0,5",    "1e-46", "3.40282357e38"};

/// One action after another, as the windows would ask for them, chosen by the bytes of the input.
class Story {
public:
    explicit Story(std::string_view input) : bytes(input), prompts(bytes) {
        PrepareProject(project);
        project.standardLibrary[2].name.clear(); // a name as a file may give it
    }

    void Run() {
        while (!bytes.AtEnd()) {
            // The editor is modal, so that nothing is taken back behind it.
            if (!profile && history.Length() > 0 && bytes.Below(16) == 0)
                TakeBack();
            else
                GoOn();
            RequireInvariants(project);
            Require(history.Length() == contentsBefore.size(), "every step is in the history");
        }
        RequireWayBackAndForth();
    }

private:
    using Action = void (Story::*)();

    /// True for a step of the history, which ends with a content that is replaced.
    template <class Action>
    bool Perform(const Action& action) {
        history.ActionBegins(project);
        const unsigned replaced = project.contentsReplaced;
        action();
        const bool isStep = history.ActionEnds(project);
        if (project.contentsReplaced != replaced)
            contentsBefore.clear();
        return isStep;
    }

    void GoOn() {
        const std::string before = FormatConstructionFile(project);
        if (Perform([this] { Act(); }))
            contentsBefore.push_back(before);
    }

    /// Undone to the start it is the start, and redone the end.
    void RequireWayBackAndForth() {
        const std::string end = FormatConstructionFile(project);
        const std::size_t steps = history.Length();
        while (history.Length() > 0)
            TakeBack();
        for (std::size_t i = 0; i < steps; ++i)
            Perform([this] { Require(history.Redo(project).has_value(), "a step can be redone"); });
        Require(FormatConstructionFile(project) == end, "redone to the end it is the end");
    }
    void TakeBack() {
        Perform([this] { Require(history.Undo(project).has_value(), "a step can be undone"); });
        Require(FormatConstructionFile(project) == contentsBefore.back(), "undone it is as it was");
        contentsBefore.pop_back();
        RequireInvariants(project);
    }

    void Act() {
        static constexpr Action actions[] = {
            &Story::New,           &Story::Remove,        &Story::RemoveActive,
            &Story::Activate,      &Story::Select,        &Story::Copy,
            &Story::Cut,           &Story::Delete,        &Story::Paste,
            &Story::PasteBefore,   &Story::Take,          &Story::SelectMaterial,
            &Story::ChangeDialog,  &Story::AbandonDrag,   &Story::Drag,
            &Story::DropTaken,     &Story::TypeThickness, &Story::TypeAbsorption,
            &Story::TypeName,      &Story::PickType,      &Story::LeaveThickness,
            &Story::AddGlass,      &Story::FindGlass,     &Story::DeleteGlass,
            &Story::OpenEditor,    &Story::PressEditor,   &Story::DragEditor,
            &Story::KeyInEditor,   &Story::TypeInEditor,  &Story::AcceptEditor,
            &Story::CancelEditor,  &Story::Sort,          &Story::Show,
            &Story::StartAnew,     &Story::ReadSmallFile, &Story::OpenMenus,
            &Story::EmptyClipboard};
        (this->*actions[bytes.Below(static_cast<int>(std::size(actions)))])();
    }

    /// A construction in use; nothing when there is none.
    std::optional<int> Pick() {
        std::vector<int> inUse;
        for (int number = 1; number <= project.constructions.Size(); ++number)
            if (InUse(project, number))
                inUse.push_back(number);
        if (inUse.empty())
            return std::nullopt;
        return inUse[static_cast<std::size_t>(bytes.Below(static_cast<int>(inUse.size())))];
    }

    std::string Number() {
        if (bytes.Flag())
            return std::string(oddNumbers[bytes.Below(static_cast<int>(std::size(oddNumbers)))]);
        return bytes.Text();
    }

    int Layers() const {
        int count = 0;
        for (const Construction& construction : project.constructions)
            count += LayerCount(construction);
        return count;
    }
    int LayersOfCurrent() const {
        return InUse(project, project.currentConstruction)
                   ? LayerCount(project.constructions[project.currentConstruction])
                   : 0;
    }
    int Entries() const {
        return static_cast<int>(
            std::count_if(project.clipboard.begin(), project.clipboard.end(),
                          [](const ClipEntry& entry) { return !entry.name.empty(); }));
    }

    void New() {
        constexpr int enough = 12;
        if (project.constructions.Size() < enough)
            NewConstruction(project, prompts);
    }
    void Remove() { RemoveConstruction(project, bytes.Below(project.constructions.Size() + 2)); }
    void RemoveActive() { CloseConstruction(project, bytes.Flag() ? 0 : bytes.Below(14)); }
    void Activate() {
        if (const auto number = Pick())
            ActivateConstruction(project, *number);
    }
    void Select() {
        const auto number = Pick();
        if (!number)
            return;
        std::vector<bool> marks(static_cast<std::size_t>(bytes.Below(20)));
        const auto bits = bytes.Value<std::uint16_t>();
        for (std::size_t line = 0; line < marks.size(); ++line)
            marks[line] = (bits >> line % 16 & 1) != 0;
        SelectLine(project, *number, bytes.Below(18) - 1, marks);
    }

    void Copy() {
        const int before = Layers();
        try {
            CopyLayers(project, prompts);
        } catch (const RuntimeError& error) {
            RequireNumber(error, {ErrorNumber::overflow});
            Require(project.dialogActive, "layers can always be copied");
        }
        Require(Layers() == before, "copying leaves the layers alone");
    }
    void Cut() {
        const int before = Layers();
        CutLayers(project, prompts);
        Require(Layers() >= before - Entries(), "what was cut is in the clipboard");
    }
    void Delete() {
        const int current = project.currentConstruction;
        int marked = 0;
        if (InUse(project, current) && project.constructions[current].currentLayer > 0)
            marked = MarkedLayersUpTo(project.constructions[current], LayersOfCurrent());
        const int before = Layers();
        DeleteLayers(project, prompts);
        Require(Layers() == before - marked, "the marked layers are deleted");
    }
    template <class Operation>
    void PasteWith(Operation paste) {
        const int before = LayersOfCurrent();
        const int room = InUse(project, project.currentConstruction) ? maxLayers - before : 0;
        const int beeps = prompts.beeps;
        paste(project, prompts);
        Require(LayersOfCurrent() == before + std::min(room, Entries()),
                "as much is pasted as there is room for");
        Require((prompts.beeps > beeps) == (room == 0), "a full construction beeps");
    }
    void Paste() { PasteWith(PasteLayers); }
    void PasteBefore() { PasteWith(PasteLayersBefore); }

    void Take() {
        const LayerClipboard before = project.clipboard;
        try {
            TakeMaterial(project);
        } catch (const RuntimeError& error) {
            RequireNumber(error, {ErrorNumber::overflow});
            Require(project.clipboard == before, "a refused material leaves the clipboard");
        }
    }
    void SelectMaterial() { project.selectedMaterial = bytes.Below(20); }
    void ChangeDialog() { project.dialogActive = !project.dialogActive; }

    bool StartDrag() {
        const auto number = Pick();
        const int line = bytes.Below(18) - 1;
        const bool copy = bytes.Flag();
        // What is dragged is in the active window, so the dialog is not.
        project.dialogActive = false;
        return number && StartLayerDrag(project, *number, line, copy);
    }
    void AbandonDrag() { StartDrag(); }
    void Drag() {
        if (!StartDrag())
            return;
        const int before = Layers();
        const auto target = Pick();
        DropLayers(project, *target, bytes.Below(20) - 2, prompts);
        Require(project.drag.copy || Layers() == before, "moving layers loses none");
        Require(Layers() >= before, "copying layers loses none");
    }
    void DropTaken() {
        if (const auto target = Pick())
            DropMaterial(project, *target, bytes.Below(20) - 2, prompts);
    }

    void TypeThickness() {
        if (const auto number = Pick())
            EnterThickness(project, *number, Number(), prompts);
    }
    void TypeAbsorption() {
        if (const auto number = Pick())
            EnterAbsorption(project, *number, Number(), prompts);
    }
    void TypeName() {
        const auto number = Pick();
        if (!number)
            return;
        EnterName(project, *number, bytes.Text());
        for (const char c : project.constructions[*number].name)
            Require(static_cast<unsigned char>(c) >= ' ', "typed names are without controls");
    }
    void PickType() {
        if (const auto number = Pick())
            ChangeType(project, *number, bytes.Below(2));
    }
    void LeaveThickness() {
        if (const auto number = Pick())
            ShowThickness(project.constructions[*number], ThicknessEvent::restore);
    }

    std::string GlassName() {
        constexpr const char* names[] = {"", "CLEAR", "TINTED", "A/B", "2D"};
        return names[bytes.Below(5)];
    }
    void AddGlass() {
        constexpr int enough = 4;
        if (project.glassTypes.Size() > enough || project.glassTypes2D.Size() > enough)
            return;
        if (bytes.Flag())
            AddGlassType2D(project, GlassName());
        else
            AddGlassType(project, GlassName());
    }
    void FindGlass() {
        const std::string name = GlassName();
        if (!profile && FindGlassType(project, name))
            Require(project.glassTypes[project.currentGlassType].name == name,
                    "the type found has the name");
    }
    void DeleteGlass() {
        const auto before = GlassTypeNames(project).size();
        if (!profile && DeleteGlassType(project, GlassName(), prompts))
            Require(GlassTypeNames(project).size() == before - 1, "one type is deleted");
    }

    GraphGeometry Graph() {
        return {1.0 + bytes.Value<std::uint16_t>(), 1.0 + bytes.Value<std::uint16_t>()};
    }
    void OpenEditor() {
        if (!profile)
            profile = OpenProfile(project);
    }
    void PressEditor() {
        if (!profile)
            return;
        const GraphGeometry graph = Graph();
        // The column's own point, so that something is taken hold of, or any place.
        const int column = 1 + bytes.Below(profileColumns);
        double x = graph.ColumnX(column);
        double y = graph.ValueY(profile->Shown()[column]);
        if (bytes.Flag()) {
            x = bytes.Value<std::int16_t>();
            y = bytes.Value<std::int16_t>();
        }
        PressGraph(project, *profile, graph, x, y);
    }
    void DragEditor() {
        if (profile)
            DragGraph(project, *profile, Graph(), bytes.Value<std::int16_t>());
    }
    void KeyInEditor() {
        if (profile)
            PressProfileKey(project, *profile, static_cast<ProfileKey>(bytes.Below(8)));
    }
    void TypeInEditor() {
        if (!profile)
            return;
        profile->shown = static_cast<GlassProperty>(1 + bytes.Below(2));
        TypeValue(project, *profile, Number());
        const int column = project.selectedProfileColumn;
        const float value = column == 0 ? 0 : profile->Shown()[column];
        Require(value >= 0 && value <= 1, "a typed glass value is a fraction");
        SelectNextColumn(project);
        Require(ColumnText(project, *profile).empty() == (project.selectedProfileColumn == 0)
                    && LevelText(project, *profile).empty() == (project.selectedProfileColumn == 0),
                "a selected column is said in words and in figures");
    }
    void AcceptEditor() {
        if (profile && AcceptProfile(project, *profile, bytes.Text(), prompts))
            profile.reset();
    }
    void CancelEditor() {
        if (profile)
            CancelProfile(project);
        profile.reset();
    }

    void Sort() {
        constexpr void (*sorts[])(Project&) = {SortByName, SortByConductivity, SortByDensity,
                                               SortBySpecificHeat};
        sorts[bytes.Below(4)](project);
        RefreshMaterialList(project);
    }
    void Show() { ShowLibrary(project, 1 + bytes.Below(2)); }
    void StartAnew() {
        // The editor is modal, so that its glass type cannot be taken away.
        if (!profile && NewProject(project, prompts))
            Require(project.constructionCount == 0, "a new project has no constructions");
    }
    void ReadSmallFile() {
        constexpr int enough = 12;
        if (!profile && project.constructions.Size() < enough) {
            project.replacingContent = true;
            Require(ParseAndLink(smallFile, project), "a sound file can be read");
            project.replacingContent = false;
            ++project.contentsReplaced;
        }
    }
    void OpenMenus() {
        const int active = bytes.Flag() ? 0 : bytes.Below(14);
        EditMenu(project, active);
        FileMenu(project, active);
    }
    void EmptyClipboard() { ClearClipboard(project.clipboard); }

    Project project;
    FuzzBytes bytes;
    FuzzPrompts prompts;
    std::optional<GlassProfile> profile;
    History history;
    std::vector<std::string> contentsBefore; ///< before each step
};

} // namespace

void EditStory(std::string_view input) {
    Story(input).Run();
}

} // namespace strativo::fuzz
