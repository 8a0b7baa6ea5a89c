#include "edit/GlassTypes.h"

#include <algorithm>

namespace strativo {

namespace {

/// The number of a free slot, its values reset to 0. The hint saves searching from slot 1 each
/// time.
template <class Glass>
int TakeFreeSlot(NumberedList<Glass>& types, int& freeHint, OwnedComments& comments) {
    int number = freeHint;
    while (types.Has(number) && !types[number].name.empty())
        ++number;
    freeHint = number;
    if (types.Has(number)) {
        types[number] = Glass();
        comments.Drop(number);
        return number;
    }
    return types.Append();
}

} // namespace

void AddGlassType(Project& project, std::string name) {
    const int number =
        TakeFreeSlot(project.glassTypes, project.freeGlassHint, project.comments.glassTypes);
    project.glassTypes[number].name = std::move(name);
    project.currentGlassType = number;
}

void AddGlassType2D(Project& project, std::string name) {
    const int number =
        TakeFreeSlot(project.glassTypes2D, project.freeGlassHint2D, project.comments.glassTypes2D);
    project.glassTypes2D[number].name = std::move(name);
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
        project.glassTypes[number].name.clear();
        project.freeGlassHint = std::min(project.freeGlassHint, number);
        project.changed = true;
        return true;
    }
    return false;
}

} // namespace strativo
