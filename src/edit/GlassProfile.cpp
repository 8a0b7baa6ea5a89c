#include "edit/GlassProfile.h"

#include "edit/ConstructionEntry.h"
#include "edit/StateBefore.h"
#include "text/Format.h"
#include "text/Numbers.h"
#include "text/RuntimeError.h"

#include <algorithm>
#include <cmath>

namespace strativo {

namespace {

/// The value that was typed; a number too large to hold counts as the limit on its side.
double TypedValue(std::string_view text) {
    try {
        return LeadingNumber(text);
    } catch (const RuntimeError&) {
        return text.find('-') < text.find_first_of("0123456789") ? 0 : 1;
    }
}

void StoreValue(Project& project, GlassProfile& profile, double value) {
    const auto rounded = static_cast<float>(value);
    float& stored = profile.Shown()[project.selectedProfileColumn];
    if (stored == rounded)
        return;
    stored = rounded;
    project.changed = true;
}

double WithinGraph(double value) {
    return std::clamp(value, 0.0, 1.0);
}

double KeyStep(ProfileKey key) {
    switch (key) {
    case ProfileKey::pageUp:
        return 0.1;
    case ProfileKey::pageDown:
        return -0.1;
    case ProfileKey::up:
        return 0.01;
    case ProfileKey::down:
        return -0.01;
    default:
        return 0;
    }
}

int ColumnAfterKey(int column, ProfileKey key) {
    switch (key) {
    case ProfileKey::home:
        return 1;
    case ProfileKey::end:
        return profileColumns;
    case ProfileKey::left:
        return std::max(column - 1, 1);
    case ProfileKey::right:
        return std::min(column + 1, profileColumns);
    default:
        return column;
    }
}

bool NameTakenByAnother(const Project& project, int glassType, std::string_view name) {
    for (const int number : NamedGlassTypes(project.glassTypes))
        if (number != glassType && project.glassTypes[number].name == name)
            return true;
    return false;
}

/// An unchanged name is accepted even if another type has it: an import may bring a name in twice.
bool IsAcceptableName(const Project& project, const GlassProfile& profile, std::string_view name,
                      Prompts& prompts) {
    if (name.empty()) {
        prompts.ShowMessage({"The window type must have a name", ""});
        return false;
    }
    if (name != profile.name && NameTakenByAnother(project, profile.glassType, name)) {
        prompts.ShowMessage({"The name of the window must be unique", ""});
        return false;
    }
    return true;
}

} // namespace

GlassProfile OpenProfile(const Project& project) {
    const GlassType& type = project.glassTypes[project.currentGlassType];
    GlassProfile profile;
    profile.glassType = project.currentGlassType;
    profile.name = type.name;
    profile.transmission = type.transmission;
    profile.absorption = type.absorption;
    return profile;
}

int GraphGeometry::ColumnAt(double x) const {
    return static_cast<int>(std::floor((x - ColumnStep() / 2) / ColumnStep())) + 1;
}

void PressGraph(Project& project, GlassProfile& profile, const GraphGeometry& graph, double x,
                double y) {
    const int column = graph.ColumnAt(x);
    project.selectedProfileColumn = 0;
    if (column < 1 || column > profileColumns)
        return;
    const double offset = graph.ValueY(profile.Shown()[column]) - y;
    if (std::abs(offset) > markerRadius)
        return;
    project.selectedProfileColumn = column;
    profile.dragOffset = offset;
}

void DragGraph(Project& project, GlassProfile& profile, const GraphGeometry& graph, double y) {
    if (project.selectedProfileColumn == 0)
        return;
    StoreValue(project, profile, WithinGraph(graph.ValueAt(y + profile.dragOffset)));
    project.changed = true;
}

void PressProfileKey(Project& project, GlassProfile& profile, ProfileKey key) {
    int& column = project.selectedProfileColumn;
    if (column == 0) {
        column = 1;
        return;
    }
    if (const double step = KeyStep(key); step != 0) {
        // Limited on one side: a value that a file left outside the graph comes back in steps too.
        const double value = profile.Shown()[column] + step;
        StoreValue(project, profile, step > 0 ? std::min(value, 1.0) : std::max(value, 0.0));
    }
    column = ColumnAfterKey(column, key);
}

void TypeValue(Project& project, GlassProfile& profile, std::string_view text) {
    if (project.selectedProfileColumn > 0)
        StoreValue(project, profile, WithinGraph(TypedValue(text)));
}

void SelectNextColumn(Project& project) {
    if (project.selectedProfileColumn > 0)
        project.selectedProfileColumn = std::min(project.selectedProfileColumn + 1, profileColumns);
}

std::string ColumnText(const Project& project, const GlassProfile& profile) {
    const int column = project.selectedProfileColumn;
    const bool transmission = profile.shown == GlassProperty::transmission;
    if (column == 0)
        return "";
    if (column == 1)
        return transmission ? "Diffuse transmission" : "Diffuse absorption";
    return (transmission ? "Transmission at " : "Absorption at ")
           + FormatGeneral(IncidenceAngle(column)) + " degrees";
}

std::string LevelText(const Project& project, const GlassProfile& profile) {
    const int column = project.selectedProfileColumn;
    return column == 0 ? "" : FormatNumber(profile.Shown()[column], "0.000");
}

std::string OutsideText(const GlassProfile& profile) {
    std::string text;
    for (int column = 1; column <= profileColumns; ++column) {
        const float value = profile.Shown()[column];
        if (value >= 0 && value <= 1)
            continue;
        text += (text.empty() ? "Outside 0 to 1, drawn at the edge: " : ", ")
                + FormatGeneral(AsDecimal(value))
                + (column == 1 ? " diffuse"
                               : " at " + FormatGeneral(IncidenceAngle(column)) + " degrees");
    }
    return text;
}

bool AcceptProfile(Project& project, const GlassProfile& profile, std::string_view name,
                   Prompts& prompts) {
    const std::string clean = CleanEntry(name);
    if (!IsAcceptableName(project, profile, clean, prompts))
        return false;
    NoteGlassType(project, profile.glassType);
    const bool isNew = profile.name.empty();
    NameAction(project, (isNew ? "new glass type " : "change of glass type ") + clean, !isNew);
    GlassType& type = project.glassTypes[profile.glassType];
    const bool different = type.name != clean || type.transmission != profile.transmission
                           || type.absorption != profile.absorption;
    type.name = clean;
    type.transmission = profile.transmission;
    type.absorption = profile.absorption;
    project.changed = project.changed || different;
    return true;
}

void CancelProfile(Project& project) {
    project.changed = false;
}

} // namespace strativo
