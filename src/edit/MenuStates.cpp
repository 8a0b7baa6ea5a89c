#include "edit/MenuStates.h"

#include "edit/ConstructionSlots.h"

namespace strativo {

EditMenuState EditMenu(const Project& project, std::string_view activeTag) {
    EditMenuState state;
    if (project.dialogActive) {
        state.copy = true;
        return state;
    }
    // The first clipboard slot alone decides, and marks do not: the current layer does.
    const bool hasClip = !project.clipboard[1].name.empty();
    const int active = TagNumber(activeTag);
    const bool hasLayer = InUse(project, active) && project.constructions[active].currentLayer > 0;
    state.paste = hasClip;
    state.pasteBefore = hasClip;
    state.copy = hasLayer;
    state.cut = hasLayer;
    state.deleteLayers = hasLayer;
    return state;
}

FileMenuState FileMenu(const Project& project, std::string_view activeTag) {
    return {project.changed, TagNumber(activeTag) != 0};
}

} // namespace strativo
