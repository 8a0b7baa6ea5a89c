#include "edit/MaterialList.h"

#include "text/Format.h"

#include <algorithm>

namespace strativo {

namespace {

/// An insertion sort on purpose: the name order is no strict weak order, so another algorithm
/// would give another result.
template <class Less>
void InsertionSort(MaterialLibrary& library, Less less) {
    const int count = MaterialCount(library);
    for (int i = 2; i <= count; ++i)
        for (int j = i; j > 1 && less(library[j], library[j - 1]); --j)
            std::swap(library[j], library[j - 1]);
}

void SortByField(Project& project, double Material::*field) {
    InsertionSort(Library(project, project.shownLibrary),
                  [&](const Material& a, const Material& b) { return a.*field < b.*field; });
}

std::string ConductivityText(double value) {
    if (value < 0)
        return "n/a";
    if (value < 1)
        return FormatNumber(value, "0.000");
    if (value < 10)
        return FormatNumber(value, "0.00");
    if (value < 100)
        return FormatNumber(value, "##.0");
    return FormatNumber(value, value < 100000 ? "#####" : "#E+00");
}

std::string WholeText(double value) {
    return value < 0 ? "n/a" : FormatNumber(value, value < 100000 ? "#####" : "#E+00");
}

} // namespace

bool NameLess(std::string_view a, std::string_view b) {
    const std::size_t length = std::min(a.size(), b.size());
    for (std::size_t i = 0; i < length; ++i)
        if (a[i] != b[i])
            return static_cast<unsigned char>(a[i]) < static_cast<unsigned char>(b[i]);
    return false;
}

void SortLibraryByName(MaterialLibrary& library) {
    InsertionSort(library,
                  [](const Material& a, const Material& b) { return NameLess(a.name, b.name); });
}

void SortByName(Project& project) {
    SortLibraryByName(Library(project, project.shownLibrary));
}

void SortByConductivity(Project& project) {
    SortByField(project, &Material::conductivity);
}

void SortByDensity(Project& project) {
    SortByField(project, &Material::density);
}

void SortBySpecificHeat(Project& project) {
    SortByField(project, &Material::specificHeat);
}

std::string FormatMaterialLine(const Material& material) {
    constexpr std::size_t nameWidth = 33;
    constexpr std::size_t numberWidth = 6;
    return LeftField(material.name, nameWidth, nameWidth) + "  "
           + RightField(ConductivityText(material.conductivity), numberWidth) + "    "
           + RightField(WholeText(material.density), numberWidth) + "    "
           + RightField(WholeText(material.specificHeat), numberWidth);
}

std::vector<std::string> MaterialLines(const Project& project) {
    const MaterialLibrary& library = Library(project, project.shownLibrary);
    std::vector<std::string> lines;
    const int count = MaterialCount(library);
    for (int number = 1; number <= count; ++number)
        lines.push_back(FormatMaterialLine(library[number]));
    return lines;
}

std::string MaterialListCaption(const Project& project) {
    const bool user = project.shownLibrary == userLibraryNumber;
    return "Select Material : " + (user ? project.userLibraryFile : project.standardLibraryFile);
}

void RefreshMaterialList(Project& project) {
    project.selectedMaterial = 0;
}

void ShowLibrary(Project& project, int libraryNumber) {
    project.shownLibrary = static_cast<std::int16_t>(libraryNumber);
    RefreshMaterialList(project);
}

} // namespace strativo
