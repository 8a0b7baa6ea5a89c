#pragma once

#include "model/Project.h"

#include <string_view>

namespace strativo {

struct EditMenuState {
    bool cut = false;
    bool copy = false;
    bool paste = false;
    bool pasteBefore = false;
    bool deleteLayers = false;

    bool operator==(const EditMenuState&) const = default;
};

/// What the Edit menu offers, given the tag of the active child window.
EditMenuState EditMenu(const Project& project, std::string_view activeTag);

struct FileMenuState {
    bool save = false;
    bool removeConstruction = false;

    bool operator==(const FileMenuState&) const = default;
};

/// What the File menu offers, given the tag of the active child window.
FileMenuState FileMenu(const Project& project, std::string_view activeTag);

} // namespace strativo
