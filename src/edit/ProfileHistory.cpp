#include "edit/ProfileHistory.h"

#include <utility>

namespace strativo {

void ProfileHistory::Begin(const Project& project, const GlassProfile& profile) {
    before = StateOf(project, profile);
}

void ProfileHistory::End(const GlassProfile& profile, int gesture) {
    if (before.transmission == profile.transmission && before.absorption == profile.absorption)
        return;
    if (std::exchange(lastGesture, gesture) != gesture)
        done.push_back(before);
    undone.clear();
}

bool ProfileHistory::Undo(Project& project, GlassProfile& profile) {
    return Move(done, undone, project, profile);
}

bool ProfileHistory::Redo(Project& project, GlassProfile& profile) {
    return Move(undone, done, project, profile);
}

ProfileHistory::State ProfileHistory::StateOf(const Project& project, const GlassProfile& profile) {
    return {profile.transmission, profile.absorption, profile.shown, project.selectedProfileColumn,
            project.changed};
}

bool ProfileHistory::Move(std::vector<State>& from, std::vector<State>& to, Project& project,
                          GlassProfile& profile) {
    if (from.empty())
        return false;
    lastGesture = 0;
    to.push_back(StateOf(project, profile));
    const State& state = from.back();
    profile.transmission = state.transmission;
    profile.absorption = state.absorption;
    profile.shown = state.shown;
    project.selectedProfileColumn = state.column;
    project.changed = state.changed;
    from.pop_back();
    return true;
}

} // namespace strativo
