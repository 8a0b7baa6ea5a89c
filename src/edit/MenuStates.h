#pragma once

#include "model/Project.h"

namespace strativo {

struct EditMenuState {
    bool cut = false;
    bool copy = false;
    bool paste = false;
    bool pasteBefore = false;
    bool deleteLayers = false;

    bool operator==(const EditMenuState&) const = default;
};

/// What the Edit menu offers, given the number of the construction whose window is active; 0 when
/// another window is.
EditMenuState EditMenu(const Project& project, int activeConstruction);

struct FileMenuState {
    bool save = false;
    bool removeConstruction = false;

    bool operator==(const FileMenuState&) const = default;
};

/// What the File menu offers, given the same number.
FileMenuState FileMenu(const Project& project, int activeConstruction);

} // namespace strativo
