#include "calc/HeatTransferMatrix.h"

#include <algorithm>
#include <cmath>

namespace strativo {

namespace {

/// The three functions of z = x + ix that make up a layer's matrix, without the factor 2^exponent.
struct Waves {
    Complex coshLessOne;
    Complex sinh;
    int exponent = 0;
};

/// For x up to about 20.
Waves WavesOfThinLayer(double x) {
    // Computed from z / 2: this avoids the cancellation in cosh z - 1 near 0.
    const double sinh = std::sinh(x / 2), cosh = std::cosh(x / 2);
    const double sin = std::sin(x / 2), cos = std::cos(x / 2);
    const Complex sinhOfHalf(sinh * cos, cosh * sin);
    const Complex coshOfHalf(cosh * cos, sinh * sin);
    return {2.0 * sinhOfHalf * sinhOfHalf, 2.0 * sinhOfHalf * coshOfHalf, 0};
}

/// Splits e^x into a power of two and a factor from 1 to 2, since e^x itself could overflow.
Waves WavesOfThickLayer(double x) {
    const int exponent = static_cast<int>(x / std::log(2.0));
    const double factor = std::exp(x - exponent * std::log(2.0)) / 2;
    const Complex growing = std::polar(factor, x);
    const Complex fading = std::polar(factor * std::exp(-2 * x), -x);
    return {growing + fading - std::ldexp(1.0, -exponent), growing - fading, exponent};
}

/// A cheap measure of the absolute value: between 0.7 times and 1 times of it.
double Size(Complex element) {
    return std::max(std::abs(element.real()), std::abs(element.imag()));
}

HeatTransferMatrix Normalised(HeatTransferMatrix matrix) {
    constexpr double limit = 0x1p64;
    const double largest = std::max(
        {Size(matrix.rest11), Size(matrix.rest12), Size(matrix.rest21), Size(matrix.rest22)});
    if (largest < limit)
        return matrix;
    const int shift = std::ilogb(largest);
    const double scale = std::ldexp(1.0, -shift);
    matrix.rest11 *= scale;
    matrix.rest12 *= scale;
    matrix.rest21 *= scale;
    matrix.rest22 *= scale;
    matrix.exponent += shift;
    return matrix;
}

} // namespace

HeatTransferMatrix MatrixOfResistance(double resistance) {
    return {0, -resistance, 0, 0, 0};
}

HeatTransferMatrix MatrixOfLayer(double resistance, double heatCapacity, double frequency) {
    constexpr double thin = 1e-8;
    constexpr double thick = 20;
    const Complex storage(0, frequency * heatCapacity);
    const double x = std::sqrt(resistance * (frequency * heatCapacity / 2));
    if (x < thin) {
        const Complex half = storage * resistance / 2.0;
        return {half, -resistance, -storage, half, 0};
    }
    const Complex z(x, x);
    const Waves waves = x > thick ? WavesOfThickLayer(x) : WavesOfThinLayer(x);
    return Normalised({waves.coshLessOne, -resistance * (waves.sinh / z),
                       -storage * (waves.sinh / z), waves.coshLessOne, waves.exponent});
}

HeatTransferMatrix operator*(const HeatTransferMatrix& outer, const HeatTransferMatrix& inner) {
    // (1 + O)(1 + I) = 1 + O + I + O I, each rest with its power of two.
    const double o = std::ldexp(1.0, -inner.exponent);
    const double i = std::ldexp(1.0, -outer.exponent);
    return Normalised({o * outer.rest11 + i * inner.rest11 + outer.rest11 * inner.rest11
                           + outer.rest12 * inner.rest21,
                       o * outer.rest12 + i * inner.rest12 + outer.rest11 * inner.rest12
                           + outer.rest12 * inner.rest22,
                       o * outer.rest21 + i * inner.rest21 + outer.rest21 * inner.rest11
                           + outer.rest22 * inner.rest21,
                       o * outer.rest22 + i * inner.rest22 + outer.rest21 * inner.rest12
                           + outer.rest22 * inner.rest22,
                       outer.exponent + inner.exponent});
}

} // namespace strativo
