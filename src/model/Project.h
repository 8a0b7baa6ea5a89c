#pragma once

#include "model/Comments.h"
#include "model/Construction.h"
#include "model/FileStamp.h"
#include "model/GlassType.h"
#include "model/LayerClipboard.h"
#include "model/Material.h"
#include "model/NumberedTable.h"
#include "model/StateBefore.h"

#include <array>
#include <cstdint>
#include <string>
#include <vector>

namespace strativo {

/// The file name of the standard library that stands for the remembered default.
inline constexpr char singleBlank[] = " ";

/// The path of the help file that stands for none.
inline constexpr char noHelpFile[] = ".";
/// The remembered path of the standard library if no setting gives one.
inline constexpr char defaultLibrary[] = "..\\stdmat.lby";

/// A layer drag in progress between construction windows.
struct LayerDrag {
    int source = 0;    ///< number of the construction that the layers come from
    bool copy = false; ///< Ctrl was held when the drag started
};

/// The names that the glass types window lists. After an import by the main menu they are out of
/// date on purpose, until the window lists the types anew.
struct GlassTypeList {
    std::vector<std::string> names;
    unsigned listings = 0; ///< grows each time the types are listed anew
};

/// Everything the program knows. There is one project from start to end: its content may be
/// replaced, the object never is. As constructed it is that of a newly started program: libraries
/// and clipboard are empty, and its only construction slot is not in use.
struct Project {
    MaterialLibrary standardLibrary = EmptyLibrary();
    MaterialLibrary userLibrary = EmptyLibrary();
    std::string standardLibraryFile = singleBlank; ///< a single blank: the remembered default
    std::string userLibraryFile;                   ///< "" none
    bool standardLoaded = false;
    bool userLoaded = false;
    bool userLibraryNeeded = false;                    ///< a layer comes from the user library
    std::int16_t shownLibrary = standardLibraryNumber; ///< library in the material list
    int selectedMaterial = 0; ///< selected line of the material list + 1; 0 none

    std::string constructionFile; ///< "" no file yet
    std::string stampedFile;      ///< the file that the stamp belongs to
    FileStamp stamp;              ///< the file as it was read or last written
    // Folders where prompts start; "." is the working directory, "" means none.
    std::string usedFolder;            ///< folder of the last used file
    std::string standardLibraryFolder; ///< in which the standard library was found
    std::string userLibraryFolder;     ///< in which the user library was found
    NumberedList<Construction> constructions{1};
    int constructionCount = 0; ///< constructions in use
    int lowestFreeHint = 1;    ///< no slot below it is free
    int currentConstruction = 1;
    unsigned activations = 0; ///< counts activations of construction windows
    unsigned openings = 0;    ///< counts the constructions taken into use
    unsigned beginnings = 0;  ///< counts the projects begun; empty windows go with their project
    int windowToActivate = 0; ///< construction whose window should come to the front; 0 for none

    NumberedList<GlassType> glassTypes{1};
    NumberedList<GlassType2D> glassTypes2D{1};
    GlassTypeList glassTypeList;
    int currentGlassType = 1;
    int currentGlassType2D = 1;
    int freeGlassHint = 1;       ///< no ordinary glass slot below it is free
    int freeGlassHint2D = 1;     ///< no two-dimensional glass slot below it is free
    int glassSectionsRead = 0;   ///< running count of ordinary glass sections read or imported
    int glassSectionsRead2D = 0; ///< the same for two-dimensional ones

    Comments comments;
    bool changed = false;          ///< the project has unsaved changes
    unsigned contentsReplaced = 0; ///< counts new projects and files read
    unsigned contentsSaved = 0;    ///< counts the writings to a file
    bool replacingContent = false; ///< the old content is gone and the new one is not complete yet

    StateBefore before; ///< what the action under way has changed

    LayerClipboard clipboard;
    LayerDrag drag;
    bool dialogActive = false;         ///< the Select Material dialog is the active window
    bool dialogHidden = false;         ///< the user closed the Select Material dialog
    bool closingInProgress = false;    ///< the program itself is closing a construction window
    int selectedProfileColumn = 0;     ///< glass editor: 0 none, else 1 to 11; outlives the editor
    std::string helpFile = noHelpFile; ///< "." none
    std::string rememberedLibrary = defaultLibrary; ///< path that a single blank stands for
    std::string startDirectory;                     ///< nothing reads it
    std::string said; ///< UTF-8: what was just done, until the status bar has told it
    /// Source identification of each window loaded so far, in the order of the About box.
    std::array<std::string, 5> windowSources;
};

/// The library of that number: 2 is the user library, any other the standard library.
inline MaterialLibrary& Library(Project& project, int number) {
    return number == userLibraryNumber ? project.userLibrary : project.standardLibrary;
}
inline const MaterialLibrary& Library(const Project& project, int number) {
    return number == userLibraryNumber ? project.userLibrary : project.standardLibrary;
}

/// Whether the construction is open, which it is from the opening of its window to its removal.
inline bool InUse(const Project& project, int number) {
    return project.constructions.Has(number) && project.constructions[number].window.open;
}

/// The numbers of the constructions in use, in order.
inline auto ConstructionsInUse(const Project& project) {
    const NumberedList<Construction>& constructions = project.constructions;
    return NumberRange(1, constructions.Size(),
                       [&constructions](int number) { return constructions[number].window.open; });
}

} // namespace strativo
