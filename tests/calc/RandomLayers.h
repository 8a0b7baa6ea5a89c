#pragma once

#include "calc/DynamicCharacteristics.h"

#include <algorithm>
#include <cmath>
#include <random>

namespace strativo {

/// Walls of 1 to 15 layers, light and heavy, thin and thick, films as well; the same every time.
class RandomWalls {
public:
    ThermalLayers Layers() {
        ThermalLayers layers;
        const int count = Whole(1, maxLayers);
        for (int slot = 1; slot <= count; ++slot)
            layers.Add(OneLayer(slot));
        return layers;
    }
    Films BothFilms() { return {Film(), Film()}; }
    int Whole(int first, int last) { return std::uniform_int_distribution(first, last)(engine); }
    double Between(double first, double last) {
        return std::uniform_real_distribution(first, last)(engine);
    }

private:
    ThermalLayer OneLayer(int slot) {
        const double thickness = Power(0, 3);
        ThermalLayer layer{slot, thickness / 1000 / Power(-2, 2.5), 0, 0, thickness, false};
        if (Whole(1, 4) > 1) {
            layer.mass = thickness / 1000 * Power(0.5, 4);
            layer.heatCapacity = layer.mass * Power(2, 3.7);
        }
        return layer;
    }
    double Film() { return Whole(1, 5) == 1 ? 0 : Between(0, 0.3); }
    /// 10 to a power between the two.
    double Power(double first, double last) { return std::pow(10, Between(first, last)); }

    std::mt19937 engine{20250101};
};

inline ThermalLayers Reversed(ThermalLayers layers) {
    std::reverse(layers.items.begin(), layers.items.begin() + layers.count);
    return layers;
}

} // namespace strativo
