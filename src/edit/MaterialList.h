#pragma once

#include "model/Project.h"

#include <string>
#include <string_view>
#include <vector>

namespace strativo {

/// Name order compares byte codes up to the length of the shorter name. When one name is the
/// beginning of the other, neither is less, so such names keep their order.
bool NameLess(std::string_view a, std::string_view b);

/// Sorts a library by name; equal names, and names that begin alike, keep their order.
void SortLibraryByName(MaterialLibrary& library);

// The sorts put the materials of the shown library in ascending order; equal ones keep theirs.
// Cavities sort by their negative codes.
void SortByName(Project& project);
void SortByConductivity(Project& project);
void SortByDensity(Project& project);
void SortBySpecificHeat(Project& project);

/// The material as a line of the material list: name, conductivity (W/m C), density (kg/m3) and
/// specific heat (J/kg C) in fixed columns.
std::string FormatMaterialLine(const Material& material);

/// The lines of the shown library, line k - 1 for material k.
std::vector<std::string> MaterialLines(const Project& project);

/// "Select Material : " and the file name of the shown library.
std::string MaterialListCaption(const Project& project);

/// To be called after the shown library was loaded or sorted: its list then has no selection.
void RefreshMaterialList(Project& project);

/// Shows that library in the material list and marks its option.
void ShowLibrary(Project& project, int libraryNumber);

} // namespace strativo
