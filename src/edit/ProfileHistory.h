#pragma once

#include "edit/GlassProfile.h"

#include <vector>

namespace strativo {

/// The steps of a glass editor while it is open: the changes of its values.
class ProfileHistory {
public:
    /// Before the user changes something.
    void Begin(const Project& project, const GlassProfile& profile);
    /// After it; without a changed value there is no step. All changes of one gesture, such as a
    /// drag or the typing of a number, are one step. Gestures are numbered from 1.
    void End(const GlassProfile& profile, int gesture);

    // Values, shown property and selected column are as they were, and so is whether the project
    // counts as changed. False without a step.
    bool Undo(Project& project, GlassProfile& profile);
    bool Redo(Project& project, GlassProfile& profile);

private:
    struct State {
        AngularValues transmission;
        AngularValues absorption;
        GlassProperty shown = GlassProperty::transmission;
        int column = 0;
        bool changed = false;
    };

    static State StateOf(const Project& project, const GlassProfile& profile);
    bool Move(std::vector<State>& from, std::vector<State>& to, Project& project,
              GlassProfile& profile);

    std::vector<State> done;
    std::vector<State> undone;
    State before;
    int lastGesture = 0; ///< that of the last step; 0 once something was taken back
};

} // namespace strativo
