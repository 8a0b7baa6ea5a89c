#include "edit/MenuStates.h"

namespace strativo {

EditMenuState EditMenu(const Project& project, int activeConstruction) {
    EditMenuState state;
    if (project.dialogActive) {
        state.copy = true;
        return state;
    }
    // The first clipboard slot alone decides about pasting. Marks play no part: what counts for the
    // other items is whether there is a current layer.
    const bool hasClip = !project.clipboard[1].name.empty();
    const bool hasLayer = InUse(project, activeConstruction)
                          && project.constructions[activeConstruction].currentLayer > 0;
    state.paste = hasClip;
    state.pasteBefore = hasClip;
    state.copy = hasLayer;
    state.cut = hasLayer;
    state.deleteLayers = hasLayer;
    return state;
}

FileMenuState FileMenu(const Project& project, int activeConstruction) {
    return {project.changed, activeConstruction != 0};
}

} // namespace strativo
