#include "edit/History.h"

#include "edit/ConstructionSlots.h"

#include <algorithm>
#include <utility>

namespace strativo {

namespace {

template <class Record>
std::size_t ExtraBytes(const Record&) {
    return 0;
}

std::size_t HeapBytes(const std::string& text) {
    constexpr std::size_t within = 15; // so many characters lie in the string itself
    return text.size() > within ? text.capacity() + 1 : 0;
}

std::size_t ExtraBytes(const Construction& construction) {
    const LayerSlots& layers = construction.layers;
    std::size_t bytes = static_cast<std::size_t>(layers.HighestUsed()) * sizeof(Layer);
    for (const int slot : FilledSlots(construction))
        bytes += HeapBytes(layers[slot].name);
    return bytes;
}

template <class Record>
std::size_t BytesOfSlots(const std::vector<SlotState<Record>>& slots) {
    std::size_t bytes = slots.capacity() * sizeof(SlotState<Record>);
    for (const SlotState<Record>& slot : slots) {
        bytes += ExtraBytes(slot.record) + HeapBytes(slot.record.name);
        for (const std::string& comment : slot.comments)
            bytes += sizeof(comment) + HeapBytes(comment);
    }
    return bytes;
}

/// An empty slot may hold what a layer left behind.
bool SameLayer(const Layer& a, const Layer& b) {
    if (a.name.empty() && b.name.empty())
        return true;
    Layer marked = a;
    marked.selected = b.selected;
    return marked == b;
}

template <class Record>
void Grow(NumberedList<Record>& table, int size) {
    table.Resize(std::max(table.Size(), size));
}

/// Calls it for each kind of slot: those of the parts, their table, its comments, and what was
/// saved.
template <class Parts, class ProjectRecord, class Saved, class Action>
void ForEachTable(Parts& parts, ProjectRecord& project, Saved& saved, const Action& action) {
    auto& comments = project.comments;
    action(parts.constructions, project.constructions, comments.constructions, saved.constructions);
    action(parts.glassTypes, project.glassTypes, comments.glassTypes, saved.glassTypes);
    action(parts.glassTypes2D, project.glassTypes2D, comments.glassTypes2D, saved.glassTypes2D);
}

} // namespace

bool SameContent(const Construction& a, const Construction& b) {
    if (a.window.open != b.window.open || !a.window.open)
        return a.window.open == b.window.open;
    if (a.name != b.name || a.type != b.type)
        return false;
    const int slots = std::max(a.layers.HighestUsed(), b.layers.HighestUsed());
    for (int slot = LayerSlots::first; slot <= slots; ++slot)
        if (!SameLayer(a.layers[slot], b.layers[slot]))
            return false;
    return true;
}

void History::ActionBegins(Project& project) {
    if (project.contentsReplaced != contentsSeen)
        BeginAnew(project);
    FollowSaving(project);
    before = MarksOf(project);
    project.before = StateBefore();
    project.before.kept = true;
}

bool History::ActionEnds(Project& project) {
    project.before.kept = false;
    if (project.contentsReplaced != contentsSeen) {
        BeginAnew(project);
        return false;
    }
    if (!ChangedContent(project))
        return false;
    Add(project);
    DropOldest();
    return true;
}

bool History::ChangedContent(const Project& project) const {
    const ChangedParts& parts = project.before.parts;
    bool changed = parts.fileHead && *parts.fileHead != project.comments.fileHead;
    ForEachTable(parts, project, saved,
                 [&](const auto& states, const auto& table, const auto& comments, const auto&) {
                     for (const auto& state : states)
                         changed = changed
                                   || !SameContent(state, SlotView(table, comments, state.number));
                 });
    return changed;
}

void History::BeginAnew(const Project& project) {
    done.clear();
    undone.clear();
    bytes = 0;
    saved = SavedContent();
    // Work that counts as changed from its beginning differs from any file in a way not known here.
    saved.isKnown = !project.changed;
    contentsSeen = project.contentsReplaced;
    savingsSeen = project.contentsSaved;
}

void History::FollowSaving(const Project& project) {
    if (std::exchange(savingsSeen, project.contentsSaved) != project.contentsSaved)
        saved = SavedContent();
}

void History::Add(Project& project) {
    for (const Step& step : undone)
        bytes -= BytesOf(step);
    undone.clear();
    StateBefore& state = project.before;
    Step step{state.action.empty() ? "change" : std::move(state.action), std::move(state.parts),
              before};
    if (step.parts.fileHead && !saved.fileHead)
        saved.fileHead = step.parts.fileHead;
    ForEachTable(step.parts, project, saved,
                 [](const auto& states, const auto& table, const auto& comments, auto& savedSlots) {
                     for (const auto& slot : states) {
                         savedSlots.Keep(slot);
                         savedSlots.Compare(SlotView(table, comments, slot.number));
                     }
                 });
    bytes += BytesOf(step);
    done.push_back(std::move(step));
}

void History::DropOldest() {
    while (bytes > limits.bytes && done.size() > limits.steps) {
        bytes -= BytesOf(done.front());
        done.pop_front();
    }
}

std::size_t History::BytesOf(const Step& step) {
    return sizeof(Step) + HeapBytes(step.action) + BytesOfSlots(step.parts.constructions)
           + BytesOfSlots(step.parts.glassTypes) + BytesOfSlots(step.parts.glassTypes2D);
}

std::optional<HistoryMove> History::Undo(Project& project) {
    if (done.empty())
        return std::nullopt;
    undone.push_back(std::move(done.back()));
    done.pop_back();
    return Move(project, undone.back());
}

std::optional<HistoryMove> History::Redo(Project& project) {
    if (undone.empty())
        return std::nullopt;
    done.push_back(std::move(undone.back()));
    undone.pop_back();
    return Move(project, done.back());
}

HistoryMove History::Move(Project& project, Step& step) {
    bytes -= BytesOf(step);
    Exchange(project, step);
    bytes += BytesOf(step);
    HistoryMove move{step.action};
    move.construction = ConstructionConcerned(project, step.parts);
    move.glassTypes = step.parts.constructions.empty();
    if (move.construction > 0)
        ActivateConstruction(project, move.construction);
    project.windowToActivate = move.construction;
    return move;
}

/// The current one where it changed, else one that did and is in use; where none is, as after a
/// construction went, the current one.
int History::ConstructionConcerned(const Project& project, const ChangedParts& parts) {
    const int current = project.currentConstruction;
    int concerned = 0;
    for (const SlotState<Construction>& state : parts.constructions)
        if (InUse(project, state.number) && concerned != current)
            concerned = state.number;
    const bool isOfConstructions = !parts.constructions.empty();
    return concerned == 0 && isOfConstructions && InUse(project, current) ? current : concerned;
}

void History::Exchange(Project& project, Step& step) {
    const Marks now = MarksOf(project);
    if (step.parts.fileHead && !saved.fileHead)
        saved.fileHead = project.comments.fileHead;
    Grow(project.constructions, step.marks.constructionSlots);
    Grow(project.glassTypes, step.marks.glassSlots);
    Grow(project.glassTypes2D, step.marks.glassSlots2D);
    ForEachTable(step.parts, project, saved,
                 [](auto& states, auto& table, auto& comments, auto& savedSlots) {
                     for (auto& state : states) {
                         // Untouched since the saving, it is now as it was saved.
                         savedSlots.Keep(SlotView(table, comments, state.number));
                         if (table.Has(state.number))
                             std::swap(table[state.number], state.record);
                         comments.Swap(state.number, state.comments);
                         savedSlots.Compare(SlotView(table, comments, state.number));
                     }
                 });
    if (step.parts.fileHead)
        std::swap(*step.parts.fileHead, project.comments.fileHead);
    Restore(project, step.marks);
    const bool savedSince = step.marks.saved != project.contentsSaved;
    project.changed = !IsAsSaved(project) && (savedSince || step.marks.changed);
    step.marks = now;
}

History::Marks History::MarksOf(const Project& project) {
    return {project.constructions.Size(), project.glassTypes.Size(),  project.glassTypes2D.Size(),
            project.constructionCount,    project.lowestFreeHint,     project.currentConstruction,
            project.currentGlassType,     project.currentGlassType2D, project.freeGlassHint,
            project.freeGlassHint2D,      project.glassSectionsRead,  project.glassSectionsRead2D,
            project.contentsSaved,        project.userLibraryNeeded,  project.changed};
}

void History::Restore(Project& project, const Marks& marks) {
    project.constructions.Resize(marks.constructionSlots);
    project.glassTypes.Resize(marks.glassSlots);
    project.glassTypes2D.Resize(marks.glassSlots2D);
    project.constructionCount = marks.constructionCount;
    project.lowestFreeHint = marks.lowestFreeHint;
    project.currentConstruction = marks.currentConstruction;
    project.currentGlassType = marks.currentGlassType;
    project.currentGlassType2D = marks.currentGlassType2D;
    project.freeGlassHint = marks.freeGlassHint;
    project.freeGlassHint2D = marks.freeGlassHint2D;
    project.glassSectionsRead = marks.glassSectionsRead;
    project.glassSectionsRead2D = marks.glassSectionsRead2D;
    project.userLibraryNeeded = marks.userLibraryNeeded;
}

bool History::IsAsSaved(const Project& project) const {
    return saved.isKnown && saved.constructions.AreAsSaved() && saved.glassTypes.AreAsSaved()
           && saved.glassTypes2D.AreAsSaved()
           && (!saved.fileHead || *saved.fileHead == project.comments.fileHead);
}

} // namespace strativo
