#pragma once

#include "model/NumberRange.h"
#include "model/NumberedTable.h"

#include <string>

namespace strativo {

/// Value 1 is the diffuse value; values 2 to 11 are those at 0, 10, ... 90 degrees of incidence.
using AngularValues = NumberedTable<float, 1, 11>;
using AngularTable = NumberedTable<NumberedTable<float, 1, 19>, 1, 19>;

/// A glass type with tables of the given kind; an empty name marks a free slot.
template <class Values>
struct BasicGlassType {
    std::string name;
    Values transmission; ///< fractions
    Values absorption;   ///< fractions
    Values diffusion;    ///< fractions; meaningful only with hasDiffusion
    bool hasDiffusion = false;

    bool operator==(const BasicGlassType&) const = default;
};

using GlassType = BasicGlassType<AngularValues>;
using GlassType2D = BasicGlassType<AngularTable>;

/// The numbers of the glass types that have a name, in order; other slots are free.
template <class Glass>
auto NamedGlassTypes(const NumberedList<Glass>& types) {
    return NumberRange(1, types.Size(),
                       [&types](int number) { return !types[number].name.empty(); });
}

/// The incidence angle of value 2 to 11, in degrees.
constexpr int IncidenceAngle(int valueNumber) {
    return (valueNumber - 2) * 10;
}

} // namespace strativo
