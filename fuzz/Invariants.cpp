#include "fuzz/Invariants.h"

#include "calc/LayerList.h"

#include <algorithm>
#include <cmath>

namespace strativo::fuzz {

namespace {

void RequireLayer(const Layer& layer) {
    Require(std::isfinite(layer.conductivity), "a layer's conductivity is finite");
    Require(std::isfinite(layer.absorption), "a layer's absorption is finite");
    Require(std::isfinite(layer.thickness), "a layer's thickness is finite");
    Require(std::isfinite(layer.density), "a layer's density is finite");
    Require(std::isfinite(layer.specificHeat), "a layer's specific heat is finite");
    Require(layer.library >= 0 && layer.library <= userLibraryNumber, "a layer's library exists");
}

void RequireLayers(const Construction& construction) {
    const int count = LayerCount(construction);
    Require(count <= maxLayers, "a construction has at most 15 layers");
    Require(construction.layers.HighestUsed() <= maxLayers, "there are 15 layer slots");
    for (int slot = 1; slot <= maxLayers; ++slot) {
        const Layer& layer = construction.layers[slot];
        Require(layer.name.empty() == (slot > count), "filled slots are contiguous from slot 1");
        Require(!layer.selected || slot <= count, "only layers are marked");
        RequireLayer(layer);
    }
}

void RequireWindow(const Construction& construction) {
    const LayerListView view = ViewLayerList(construction);
    const int count = LayerCount(construction);
    Require(static_cast<int>(view.lines.size()) == count, "the list has a line for each layer");
    Require(view.marks.size() == view.lines.size(), "each line is marked or not");
    Require(!view.result.empty(), "there is always a text for the U-value");
    for (const std::string& line : view.lines)
        Require(line.size() >= 54, "the columns of a layer line keep their widths");
}

void RequireCurrentLayer(const Construction& construction) {
    const int current = construction.currentLayer;
    Require(current >= 0 && current <= maxLayers, "the current layer's number is in range");
    Require(std::isfinite(construction.window.shownThickness), "the shown thickness is finite");
}

void RequireConstructions(const Project& project) {
    int inUse = 0;
    for (int number = 1; number <= project.constructions.Size(); ++number) {
        const Construction& construction = project.constructions[number];
        inUse += InUse(project, number) ? 1 : 0;
        Require(InUse(project, number) || number >= project.lowestFreeHint,
                "no slot below the hint is free");
        Require(!InUse(project, number) || construction.type != removedType,
                "a removed construction is not in use");
        RequireCurrentLayer(construction);
        RequireLayers(construction);
    }
    Require(inUse == project.constructionCount, "the count of constructions in use is right");
    Require(project.constructionCount == 0 || InUse(project, project.currentConstruction),
            "the current construction is in use when any is");
    // The window that just changed stands for all of them, which would cost too much each time.
    RequireWindow(project.constructions[project.currentConstruction]);
}

/// 0 times the sum of the values: 0 where all are finite, else not a number.
template <class Value>
float NoughtTimes(const Value& value) {
    float sum = 0;
    if constexpr (std::is_floating_point_v<Value>)
        sum = value * 0;
    else
        for (const auto& part : value)
            sum += NoughtTimes(part);
    return sum;
}

template <class Glass>
void RequireGlassTypes(const NumberedList<Glass>& types, int freeHint) {
    for (int number = 1; number <= types.Size(); ++number) {
        const Glass& type = types[number];
        Require(number >= freeHint || !type.name.empty(), "no glass slot below the hint is free");
        const float nought = NoughtTimes(type.transmission) + NoughtTimes(type.absorption)
                             + NoughtTimes(type.diffusion);
        Require(nought == 0, "glass values are finite");
    }
}

void RequireClipboard(const LayerClipboard& clipboard) {
    for (const ClipEntry& entry : clipboard) {
        Require(!entry.selected, "entries of the clipboard carry no marks");
        RequireLayer(entry);
    }
}

} // namespace

void RequireInvariants(const Project& project) {
    RequireConstructions(project);
    RequireGlassTypes(project.glassTypes, project.freeGlassHint);
    RequireGlassTypes(project.glassTypes2D, project.freeGlassHint2D);
    Require(project.glassTypes.Has(project.currentGlassType), "the current glass type exists");
    Require(project.glassTypes2D.Has(project.currentGlassType2D),
            "the current two-dimensional glass type exists");
    Require(project.selectedProfileColumn >= 0 && project.selectedProfileColumn <= 11,
            "the selected column is in range");
    RequireClipboard(project.clipboard);
}

void RequireInvariants(const MaterialLibrary& library) {
    const int count = MaterialCount(library);
    Require(count < MaterialLibrary::last, "a library ends with its end marker");
    for (int row = 1; row <= count; ++row) {
        const Material& material = library[row];
        Require(std::isfinite(material.code) && std::isfinite(material.conductivity)
                    && std::isfinite(material.density) && std::isfinite(material.specificHeat),
                "a material's values are finite");
    }
}

void RequireNumber(const RuntimeError& error, std::initializer_list<ErrorNumber> allowed) {
    Require(std::find(allowed.begin(), allowed.end(), error.Number()) != allowed.end(),
            "a failure has one of its numbers");
}

} // namespace strativo::fuzz
