#include "edit/GlassTypes.h"
#include "edit/LayerClipboard.h"
#include "files/ConstructionWriter.h"
#include "files/ReadBack.h"
#include "fuzz/ProjectSupport.h"
#include "fuzz/Targets.h"
#include "text/Lines.h"

#include <algorithm>
#include <cmath>
#include <initializer_list>

namespace strativo::fuzz {

namespace {

/// Makes a text one that can stand between apostrophes and come back: without characters that end
/// it, and without words that are looked for before its own keyword is.
void MakeStorable(std::string& text, const char* characters,
                  std::initializer_list<std::string_view> words) {
    for (char& c : text)
        if (std::string_view(characters).find(c) != std::string_view::npos)
            c = '-';
    for (const std::string_view word : words)
        for (auto at = text.find(word); at != std::string::npos; at = text.find(word))
            text[at] = '-';
}

constexpr char nameEnds[] = "'*\t\r\n\x1a";
constexpr char glassNameEnds[] = "'*\t\r\n\x1a/}";

template <class Glass>
void MakeGlassNamesStorable(NumberedList<Glass>& types) {
    for (Glass& type : types)
        MakeStorable(type.name, glassNameEnds,
                     {"!EOF", "!MATERIALS USER FILE", "!MATERIALS FILE", "!CONSTRUCTION", "!TYPE",
                      "!END", "2D"});
}

void MakeStorable(Project& project) {
    for (Construction& construction : project.constructions)
        MakeStorable(construction.name, nameEnds,
                     {"!EOF", "!MATERIALS USER FILE", "!MATERIALS FILE"});
    MakeGlassNamesStorable(project.glassTypes);
    MakeGlassNamesStorable(project.glassTypes2D);
    for (std::string* path : {&project.standardLibraryFile, &project.userLibraryFile})
        MakeStorable(*path, nameEnds, {"!EOF", "!MATERIALS USER FILE"});
}

float FiniteFloat(FuzzBytes& bytes) {
    const auto value = bytes.Value<float>();
    return std::isfinite(value) ? value : 0;
}

/// The thickness of a layer in mm: typed or read, so a float or a double.
double Thickness(FuzzBytes& bytes) {
    if (bytes.Flag())
        return FiniteFloat(bytes);
    return bytes.Value<std::int32_t>() / 1e4;
}

void AddLayers(Project& project, FuzzBytes& bytes, Desktop& desktop) {
    Construction& construction = project.constructions[project.currentConstruction];
    for (int layer = bytes.Below(maxLayers + 2); layer > 0; --layer) {
        project.shownLibrary = static_cast<std::int16_t>(1 + bytes.Below(2));
        const int materials = MaterialCount(Library(project, project.shownLibrary));
        project.selectedMaterial = 1 + bytes.Below(materials);
        try {
            TakeMaterial(project);
        } catch (const RuntimeError&) {
            continue; // a material that no layer can hold
        }
        project.clipboard[1].thickness = Thickness(bytes);
        project.clipboard[1].absorption = FiniteFloat(bytes);
        PasteLayers(project, desktop);
    }
    construction.type = bytes.Flag() ? transparentType : opaqueType;
}

void AddConstructions(Project& project, FuzzBytes& bytes, Desktop& desktop) {
    for (int number = bytes.Below(4); number > 0; --number) {
        OpenConstructionWindow(project, desktop);
        project.constructions[project.currentConstruction].name = bytes.Text();
        AddLayers(project, bytes, desktop);
        std::string comment = bytes.Text();
        MakeStorable(comment, "\r\n", {});
        project.comments.constructions.Add(project.currentConstruction, comment);
    }
}

void FillValues(AngularValues& values, FuzzBytes& bytes) {
    for (float& value : values)
        value = FiniteFloat(bytes);
}

/// A few values, since a whole table would need more bytes than inputs have.
void FillValues(AngularTable& table, FuzzBytes& bytes) {
    for (int count = bytes.Below(8); count > 0; --count) {
        const int row = 1 + bytes.Below(AngularTable::last);
        table[row][1 + bytes.Below(AngularTable::last)] = FiniteFloat(bytes);
    }
}

template <class Glass>
void FillGlassType(Glass& type, FuzzBytes& bytes) {
    FillValues(type.transmission, bytes);
    FillValues(type.absorption, bytes);
    type.hasDiffusion = bytes.Flag();
    if (type.hasDiffusion)
        FillValues(type.diffusion, bytes);
}

void AddGlassTypes(Project& project, FuzzBytes& bytes) {
    for (int number = bytes.Below(4); number > 0; --number) {
        AddGlassType(project, bytes.Text());
        FillGlassType(project.glassTypes[project.currentGlassType], bytes);
    }
    for (int number = bytes.Below(3); number > 0; --number) {
        AddGlassType2D(project, bytes.Text());
        FillGlassType(project.glassTypes2D[project.currentGlassType2D], bytes);
    }
}

/// Fills the project from an input: one that begins with "S" is taken value by value, any other
/// is the text of a construction file.
bool Fill(Project& project, std::string_view input, FuzzBytes& bytes, Desktop& desktop) {
    if (!input.starts_with('S'))
        return ParseAndLink(input, project, desktop);
    bytes.Byte();
    AddConstructions(project, bytes, desktop);
    AddGlassTypes(project, bytes);
    project.standardLibraryFile = bytes.Text();
    project.userLoaded = bytes.Flag();
    return true;
}

std::string WrittenAgain(const std::string& written, bool userLoaded) {
    FuzzBytes none("");
    FuzzDesktop desktop(none);
    Project project;
    PrepareProject(project, desktop);
    project.standardLibraryFile.clear();
    project.userLibraryFile.clear();
    project.userLoaded = userLoaded;
    Require(ParseAndLink(written, project, desktop), "what was written can be read");
    RequireInvariants(project);
    return FormatConstructionFile(project);
}

/// A negative number too small for its pattern is written as "-0.000" and comes back as 0.
void DropSignsOfZeros(std::string& line) {
    for (auto sign = line.find("-0."); sign != std::string::npos; sign = line.find("-0.", sign)) {
        const auto end = std::min(line.find_first_not_of("0.", sign + 1), line.size());
        const bool isZero = end == line.size() || std::string_view(" ,\r").find(line[end]) < 3;
        line.erase(sign, isZero ? 1 : 0);
        sign += isZero ? 0 : 1;
    }
}

/// The text without lines that are only comments, and without the layers' names.
std::string WithoutComments(std::string_view text) {
    std::string kept;
    LineReader lines(text);
    while (!lines.AtEnd()) {
        std::string line(lines.Next());
        DropSignsOfZeros(line);
        if (!line.starts_with('*'))
            kept.append(line.substr(0, line.find('*'))).append("\n");
    }
    return kept;
}

/// The part line can say where each layer's material is: by its number, or by a cavity's code.
bool MaterialsHaveNumbers(const Project& project) {
    for (const Construction& construction : project.constructions)
        for (int slot = 1; slot <= construction.layers.HighestUsed(); ++slot) {
            const Layer& layer = construction.layers[slot];
            if (layer.materialCode <= 0 && layer.conductivity != layer.materialCode)
                return false;
        }
    return true;
}

} // namespace

void WriteRead(std::string_view input) {
    FuzzBytes bytes(input);
    FuzzDesktop desktop(bytes);
    Project project;
    PrepareProject(project, desktop);
    if (!Fill(project, input, bytes, desktop))
        return;
    if (!UnreadableNames(project).empty())
        MakeStorable(project);
    Require(UnreadableNames(project).empty(), "names without what ends them can be read back");
    const std::string first = FormatConstructionFile(project);
    const std::string second = WrittenAgain(first, project.userLoaded);
    const std::string third = WrittenAgain(second, project.userLoaded);
    Require(second == third, "the second and the third writing are the same bytes");
    if (MaterialsHaveNumbers(project))
        Require(WithoutComments(first) == WithoutComments(second),
                "but for its comments a project comes back as it was");
}

} // namespace strativo::fuzz
