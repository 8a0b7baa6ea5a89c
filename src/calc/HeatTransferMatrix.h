#pragma once

#include <complex>

namespace strativo {

using Complex = std::complex<double>;

/// A heat transfer matrix Z of ISO 13786, which gives the swings of temperature and heat flow on
/// one side from those on the other. It is kept as Z = identity + 2^exponent * rest: the rest keeps
/// its digits when a light layer leaves Z close to the identity, and the exponent keeps the size of
/// a thick layer's matrix.
struct HeatTransferMatrix {
    Complex rest11; ///< 1
    Complex rest12; ///< m2 K/W
    Complex rest21; ///< W/m2 K
    Complex rest22; ///< 1
    int exponent = 0;
};

/// The matrix of a resistance (m2 K/W) that stores no heat.
HeatTransferMatrix MatrixOfResistance(double resistance);

/// The matrix of a homogeneous layer: resistance above 0 (m2 K/W), heat capacity (J/m2 K), and the
/// angular frequency of the swing (1/s).
HeatTransferMatrix MatrixOfLayer(double resistance, double heatCapacity, double frequency);

/// The product: the swing passes `inner` first.
HeatTransferMatrix operator*(const HeatTransferMatrix& outer, const HeatTransferMatrix& inner);

} // namespace strativo
