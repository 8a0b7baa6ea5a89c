#include "edit/GlassTypes.h"

#include "edit/StateBefore.h"

#include <algorithm>

namespace strativo {

namespace {

/// The lowest free slot, or the one after the last. The hint saves searching from slot 1 each time.
template <class Glass>
int FindFreeSlot(const NumberedList<Glass>& types, int& freeHint) {
    int number = freeHint;
    while (types.Has(number) && !types[number].name.empty())
        ++number;
    freeHint = number;
    return number;
}

/// Gives a type to the slot that was found, with all values 0.
template <class Glass>
void TakeSlot(NumberedList<Glass>& types, int number, const std::string& name,
              OwnedComments& comments) {
    if (!types.Has(number))
        types.Append();
    else
        comments.Drop(number);
    types[number] = Glass();
    types[number].name = name;
}

} // namespace

void AddGlassType(Project& project, const std::string& name) {
    const int number = FindFreeSlot(project.glassTypes, project.freeGlassHint);
    NoteGlassType(project, number);
    TakeSlot(project.glassTypes, number, name, project.comments.glassTypes);
    project.currentGlassType = number;
}

void AddGlassType2D(Project& project, const std::string& name) {
    const int number = FindFreeSlot(project.glassTypes2D, project.freeGlassHint2D);
    NoteGlassType2D(project, number);
    TakeSlot(project.glassTypes2D, number, name, project.comments.glassTypes2D);
    project.currentGlassType2D = number;
}

void ResetGlassTypes(Project& project) {
    project.glassTypes = NumberedList<GlassType>(1);
    project.glassTypes2D = NumberedList<GlassType2D>(1);
    project.currentGlassType = 1;
    project.currentGlassType2D = 1;
    project.freeGlassHint = 1;
    project.freeGlassHint2D = 1;
    project.glassSectionsRead = 0;
    project.glassSectionsRead2D = 0;
}

std::vector<std::string> GlassTypeNames(const Project& project) {
    std::vector<std::string> names;
    for (const int number : NamedGlassTypes(project.glassTypes))
        names.push_back(project.glassTypes[number].name);
    return names;
}

void RefreshGlassTypeList(Project& project) {
    project.glassTypeList.names = GlassTypeNames(project);
    ++project.glassTypeList.listings;
}

bool FindGlassType(Project& project, std::string_view name) {
    int number = project.glassTypes.Size();
    while (number >= 1 && project.glassTypes[number].name != name)
        --number;
    if (number < 1 || name.empty())
        return false;
    project.currentGlassType = number;
    return true;
}

bool DeleteGlassType(Project& project, std::string_view name, Prompts& prompts) {
    const Message question =
        YesNoQuestion("Do you want to delete this window type?", "Delete Window Type", Answer::no);
    if (name.empty() || prompts.ShowMessage(question) != Answer::yes)
        return false;
    for (const int number : NamedGlassTypes(project.glassTypes)) {
        if (project.glassTypes[number].name != name)
            continue;
        NoteGlassType(project, number);
        NameAction(project, "deletion of glass type " + std::string(name), true);
        project.glassTypes[number].name.clear();
        project.freeGlassHint = std::min(project.freeGlassHint, number);
        project.changed = true;
        return true;
    }
    return false;
}

} // namespace strativo
