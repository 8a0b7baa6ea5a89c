#include "edit/StateBefore.h"

#include <algorithm>
#include <utility>

namespace strativo {

namespace {

template <class Record>
void Note(std::vector<SlotState<Record>>& noted, const NumberedList<Record>& table,
          const OwnedComments& comments, int number) {
    const auto isSlot = [number](const auto& state) { return state.number == number; };
    if (std::none_of(noted.begin(), noted.end(), isSlot))
        noted.push_back(StateOf(table, comments, number));
}

bool IsKept(const Project& project) {
    return project.before.kept && !project.replacingContent;
}

} // namespace

void NoteConstruction(Project& project, int number) {
    if (IsKept(project))
        Note(project.before.parts.constructions, project.constructions,
             project.comments.constructions, number);
}

void NoteGlassType(Project& project, int number) {
    if (IsKept(project))
        Note(project.before.parts.glassTypes, project.glassTypes, project.comments.glassTypes,
             number);
}

void NoteGlassType2D(Project& project, int number) {
    if (IsKept(project))
        Note(project.before.parts.glassTypes2D, project.glassTypes2D, project.comments.glassTypes2D,
             number);
}

void NoteFileHead(Project& project) {
    if (IsKept(project) && !project.before.parts.fileHead)
        project.before.parts.fileHead = project.comments.fileHead;
}

void NameAction(Project& project, std::string action, bool removes) {
    if (!IsKept(project))
        return;
    project.before.action = std::move(action);
    project.before.removes = removes;
}

std::string Counted(int count, const std::string& noun) {
    return std::to_string(count) + " " + noun + (count == 1 ? "" : "s");
}

} // namespace strativo
