#pragma once

#include "model/Construction.h"

#include <string>
#include <vector>

namespace strativo {

inline Layer MakeLayer(const std::string& name, float conductivity, double thickness) {
    Layer layer;
    layer.name = name;
    layer.conductivity = conductivity;
    layer.thickness = thickness;
    return layer;
}

inline Construction MakeConstruction(const std::vector<Layer>& layers) {
    Construction construction;
    int slot = 0;
    for (const Layer& layer : layers)
        construction.layers.Edit(++slot) = layer;
    construction.currentLayer = layers.empty() ? 0 : 1;
    return construction;
}

} // namespace strativo
