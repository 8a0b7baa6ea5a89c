#include "Monkey.h"
#include "WindowChecks.h"
#include "calc/Relink.h"
#include "files/ConstructionWriter.h"
#include "files/FileAccess.h"
#include "files/ProjectSnapshot.h"
#include "fuzz/FuzzPrompts.h"
#include "fuzz/Invariants.h"
#include "fuzz/ReadsBack.h"
#include "project/ReadBack.h"
#include "ui/WINFORM.h"
#include "ui/WindowArea.h"
#include "ui/WorkWatch.h"

#include <QApplication>

#include <iostream>

namespace strativo::monkey {

namespace {

using fuzz::Require;

const char* ManyOpen(int constructions) {
    if (constructions == 0)
        return "no construction open";
    if (constructions == 1)
        return "1 construction open";
    if (constructions <= 5)
        return "2 to 5 constructions open";
    return constructions <= 30 ? "6 to 30 constructions open" : "over 30 constructions open";
}

/// A library loaded meanwhile can have a material, under the number of a layer, that no layer can
/// hold. Then the file cannot be read with it.
bool CanBeLinked(Project project) {
    fuzz::FuzzBytes none("");
    fuzz::FuzzPrompts prompts(none);
    try {
        RelinkLayers(project);
        return true;
    } catch (const RuntimeError&) {
        return false;
    }
}

} // namespace

void Monkey::Check() {
    const Project& project = program->TheProject();
    if (editLog != nullptr)
        editLog->Note(ContentDigest(project), program->Watch().Keeper().IsUnsaved(project));
    fuzz::RequireInvariants(project);
    // A file dropped right before a box opens is read after that, out of no event: so are its
    // boxes, however many events they take.
    constexpr int soon = 10; // events
    readsDropped = QApplication::activeModalWidget() != nullptr
                   && (readsDropped || stage.journal.Events() - stage.lastFileDrop < soon);
    const bool isIdle = depth == 1 && !readsDropped;
    if (!isIdle)
        return;
    RequireWindows(*program);
    CheckSnapshot();
    CheckSaved();
    CountStates();
}

void Monkey::CountStates() {
    Journal& journal = stage.journal;
    const Project& project = program->TheProject();
    const WindowArea& area = program->Area();
    journal.Reach(ManyOpen(project.constructionCount));
    if (InUse(project, project.currentConstruction)
        && LayerCount(project.constructions[project.currentConstruction]) == maxLayers)
        journal.Reach("15 layers in a construction");
    const std::vector<int> windows = area.Windows();
    if (std::any_of(windows.begin(), windows.end(), [&](int id) { return area.IsMinimised(id); }))
        journal.Reach("windows as icons");
    if (area.Has(UValueMDI::dialogId) && area.IsHidden(UValueMDI::dialogId))
        journal.Reach("dialog hidden");
    if (area.Has(UValueMDI::glassId))
        journal.Reach("glass window open");
    if (area.Has(UValueMDI::glassId) && project.glassTypes.Size() > 1)
        journal.Reach("glass types listed");
    if (project.userLoaded)
        journal.Reach("user library loaded");
    journal.Reach(project.changed ? "unsaved changes" : "no unsaved changes");
}

/// Whatever the project is, a recovery copy of it comes back as the same.
void Monkey::CheckSnapshot() {
    const std::string bytes = WriteSnapshot(program->TheProject(), {});
    Project read;
    ReadSnapshot(bytes, read);
    Require(WriteSnapshot(read, {}) == bytes, "a snapshot holds the project");
}

/// A file that is another one than the last time was written by the program.
void Monkey::CheckSaved() {
    const Project& project = program->TheProject();
    const std::string& path = project.constructionFile;
    if (path.empty() || !world.WasWritten(path))
        return;
    world.Know(path);
    stage.journal.Reach("saves done");
    const std::string bytes = ReadFileBytes(path);
    Require(!project.changed, "nothing is left unsaved by a save");
    Require(bytes == FormatConstructionFile(project), "the file holds the project");
    if (!UnreadableNames(project).empty() || !CanBeLinked(project))
        return;
    try {
        fuzz::RequireReadsBack(project, bytes);
    } catch (const fuzz::BrokenPromise&) {
        std::cerr << bytes << '\n';
        throw;
    }
    stage.journal.Reach("saves read back");
}

void Monkey::CheckEnd() {
    const Project& project = program->TheProject();
    const bool isUsers = !program->HasEnded() && !program->isVisible();
    try {
        Require(depth == 0, "no event is left open at the end");
        fuzz::RequireInvariants(project);
        CheckSaved();
        const bool hasWork = program->Watch().Keeper().IsUnsaved(project);
        Require(!program->HasEnded() || !hasWork || world.HasRecoveryCopy(),
                "unsaved work is kept when the program ends without asking");
        for (const QWidget* window : QApplication::topLevelWidgets())
            Require(!isUsers || window == program.get() || window->isHidden(),
                    "no window is left at the end");
    } catch (const fuzz::BrokenPromise& broken) {
        stage.journal.Fail(broken.what());
    }
    if (isUsers)
        stage.journal.Reach("ended by its user");
    if (program->HasEnded() && !stage.sessionEnding)
        stage.journal.Reach("ended by itself");
    if (program->HasEnded() && program->Watch().Keeper().IsUnsaved(project))
        stage.journal.Reach("recovery copies kept");
}

} // namespace strativo::monkey
