#include "edit/GlassTypes.h"
#include "edit/LayerClipboard.h"
#include "files/ConstructionWriter.h"
#include "fuzz/ProjectSupport.h"
#include "fuzz/ReadsBack.h"
#include "fuzz/Targets.h"
#include "project/ReadBack.h"

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

void AddLayers(Project& project, FuzzBytes& bytes, Prompts& prompts) {
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
        PasteLayers(project, prompts);
    }
    construction.type = bytes.Flag() ? transparentType : opaqueType;
}

void AddConstructions(Project& project, FuzzBytes& bytes, Prompts& prompts) {
    for (int number = bytes.Below(4); number > 0; --number) {
        OpenConstructionWindow(project);
        project.constructions[project.currentConstruction].name = bytes.Text();
        AddLayers(project, bytes, prompts);
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
bool Fill(Project& project, std::string_view input, FuzzBytes& bytes, Prompts& prompts) {
    if (!input.starts_with('S'))
        return ParseAndLink(input, project);
    bytes.Byte();
    AddConstructions(project, bytes, prompts);
    AddGlassTypes(project, bytes);
    project.standardLibraryFile = bytes.Text();
    project.userLoaded = bytes.Flag();
    return true;
}

} // namespace

void WriteRead(std::string_view input) {
    FuzzBytes bytes(input);
    FuzzPrompts prompts(bytes);
    Project project;
    PrepareProject(project);
    if (!Fill(project, input, bytes, prompts))
        return;
    if (!UnreadableNames(project).empty())
        MakeStorable(project);
    Require(UnreadableNames(project).empty(), "names without what ends them can be read back");
    RequireReadsBack(project, FormatConstructionFile(project));
}

} // namespace strativo::fuzz
