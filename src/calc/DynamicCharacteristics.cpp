#include "calc/DynamicCharacteristics.h"

#include <algorithm>
#include <cmath>

namespace strativo {

namespace {

constexpr double twoPi = 6.283185307179586476925;

/// The matrices from which all characteristics are derived.
struct Products {
    HeatTransferMatrix toSurface; ///< without the inside film
    HeatTransferMatrix toAir;
};

Products ProductsOf(const ThermalLayers& layers, Films films, double period) {
    HeatTransferMatrix product = MatrixOfResistance(films.outside);
    for (const ThermalLayer& layer : layers)
        product = product * MatrixOfLayer(layer.resistance, layer.heatCapacity, twoPi / period);
    return {product, product * MatrixOfResistance(films.inside)};
}

double Hours(double angle, double period) {
    return angle / twoPi * period / secondsPerHour;
}

/// The angle as a lag from 0 to below a whole turn. An angle just below a whole turn is a rounded
/// 0.
double LagAngle(double angle) {
    constexpr double hair = 1e-9;
    const double turned = angle < 0 ? angle + twoPi : angle;
    return turned > twoPi - hair ? 0 : turned;
}

bool HoldsHeat(const ThermalLayers& layers) {
    return std::any_of(layers.begin(), layers.end(),
                       [](const ThermalLayer& layer) { return layer.heatCapacity > 0; });
}

/// Y = -Z11 / Z12 and kappa = period / 2 pi |1 - Z11| / |Z12|; Z22 for the other side.
SideCharacteristics SideOf(const HeatTransferMatrix& z, Complex rest, double period) {
    const Complex admittance = -(std::ldexp(1.0, -z.exponent) + rest) / z.rest12;
    return {std::abs(admittance), Hours(std::arg(admittance), period),
            period / twoPi * std::abs(rest / z.rest12)};
}

std::optional<MatrixElements> ElementsOf(const HeatTransferMatrix& z) {
    constexpr double limit = 1e300;
    constexpr int limitExponent = 1000;
    if (z.exponent > limitExponent)
        return std::nullopt;
    const double scale = std::ldexp(1.0, z.exponent);
    const MatrixElements elements{1.0 + scale * z.rest11, scale * z.rest12, scale * z.rest21,
                                  1.0 + scale * z.rest22};
    for (const Complex& element : {elements.z11, elements.z12, elements.z21, elements.z22})
        if (!(std::abs(element) < limit))
            return std::nullopt;
    return elements;
}

/// Transmission: Y12 = -1 / Z12.
void FillPeriodic(DynamicCharacteristics& dynamic, const HeatTransferMatrix& z,
                  double transmittance, double period) {
    constexpr double nothing = 1e-300;
    const double periodic = std::ldexp(1 / std::abs(z.rest12), -z.exponent);
    if (periodic < nothing)
        return;
    dynamic.periodicTransmittance = periodic;
    dynamic.periodicLag = Hours(LagAngle(std::arg(-z.rest12)), period);
    dynamic.decrementFactor = periodic / transmittance;
}

/// 1 - Rsi Y11, calculated as the quotient of the matrices without and with the inside film.
void FillSurfaceFactor(DynamicCharacteristics& dynamic, const Products& products, double period) {
    const Complex inverse = products.toAir.rest12 / products.toSurface.rest12;
    dynamic.surfaceFactor =
        std::ldexp(1 / std::abs(inverse), products.toSurface.exponent - products.toAir.exponent);
    dynamic.surfaceLag = Hours(std::arg(inverse), period);
}

/// Without heat storage, every swing is a series of steady states.
DynamicCharacteristics WithoutStorage(const SteadyState& steady) {
    DynamicCharacteristics dynamic;
    dynamic.inside.admittance = steady.transmittance;
    dynamic.outside.admittance = steady.transmittance;
    dynamic.periodicTransmittance = steady.transmittance;
    dynamic.periodicLag = 0;
    dynamic.decrementFactor = 1;
    dynamic.surfaceFactor = steady.temperatureFactor;
    dynamic.matrix = MatrixElements{1, -steady.resistance, 0, 1};
    return dynamic;
}

} // namespace

DynamicCharacteristics DynamicCharacteristicsOf(const ThermalLayers& layers, Films films,
                                                double period) {
    const SteadyState steady = SteadyStateOf(layers, films, {});
    if (!HoldsHeat(layers))
        return WithoutStorage(steady);
    const Products products = ProductsOf(layers, films, period);
    const HeatTransferMatrix& z = products.toAir;
    DynamicCharacteristics dynamic;
    dynamic.inside = SideOf(z, z.rest11, period);
    dynamic.outside = SideOf(z, z.rest22, period);
    FillPeriodic(dynamic, z, steady.transmittance, period);
    FillSurfaceFactor(dynamic, products, period);
    dynamic.matrix = ElementsOf(z);
    return dynamic;
}

} // namespace strativo
