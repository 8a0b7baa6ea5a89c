#pragma once

#include "model/Project.h"

#include <string>
#include <string_view>
#include <vector>

namespace strativo {

/// Name order: by byte code up to the length of the shorter name. A name is never less than one
/// that it begins, so that such names keep the order they had.
bool NameLess(std::string_view a, std::string_view b);

/// Puts a library into name order; equal names, and those that begin alike, keep their order.
void SortLibraryByName(MaterialLibrary& library);

// The sorts reorder the materials of the shown library, ascending; equal ones keep their order.
// Cavity entries sort by their negative codes.
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

/// After the library shown was loaded or sorted: nothing is selected in its list.
void RefreshMaterialList(Project& project);

/// Shows that library in the material list, its option marked.
void ShowLibrary(Project& project, int libraryNumber);

} // namespace strativo
