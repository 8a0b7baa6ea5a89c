#include "calc/UValue.h"

#include "calc/CavityTypes.h"
#include "text/Format.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace strativo {

namespace {

/// Fixed resistances of unventilated air layers, m2 C/W, for ordinary and for low-emissivity
/// surfaces. They are 32-bit floats so that sums agree with those in users' files.
constexpr float ordinaryCavity = 0.11F;
constexpr float lowEmissivityCavity = 0.18F;

double CavityResistance(const Layer& layer) {
    const float code = layer.conductivity;
    if (code == resistanceCavity)
        return layer.thickness;
    if (code == -1 || code == -4 || code == -5 || code == -11)
        return ordinaryCavity;
    if (code == -2 || code == -6)
        return lowEmissivityCavity;
    return code;
}

float Narrow(double value) {
    constexpr double limit = std::numeric_limits<float>::max();
    return static_cast<float>(std::clamp(value, -limit, limit));
}

} // namespace

double LayerResistance(const Layer& layer) {
    if (layer.conductivity < 0)
        return CavityResistance(layer);
    return layer.conductivity == 0 ? 0 : layer.thickness / 1000 / layer.conductivity;
}

float LayerListResistance(const Layer& layer) {
    // Code -4 has no named type: the list shows nothing for it, but the U-value includes it.
    if (layer.conductivity == -4)
        return 0;
    if (layer.conductivity >= 0 && layer.thickness <= 0)
        return 0;
    return Narrow(LayerResistance(layer));
}

std::optional<double> IndicativeUValue(const LayerSlots& layers, int lineCount) {
    double sum = 0;
    bool zeroThickness = lineCount < 1;
    for (int slot = 1; slot <= lineCount; ++slot) {
        zeroThickness = zeroThickness || layers[slot].thickness == 0;
        sum += LayerResistance(layers[slot]);
    }
    const double value = 1 / (sum + outsideSurfaceResistance + insideSurfaceResistance);
    if (zeroThickness || !std::isfinite(value))
        return std::nullopt;
    return value;
}

std::string UValueText(const Construction& construction) {
    const auto value = IndicativeUValue(construction.layers, LayerCount(construction));
    return value ? FormatNumber(*value, "#0.00") : "n/a";
}

} // namespace strativo
