#pragma once

#include "calc/ThermalConditions.h"
#include "cli/Invocation.h"

#include <string>
#include <vector>

namespace strativo {

/// What the thermal options ask for.
struct ThermalChoice {
    ThermalConditions conditions;
    std::vector<HeatFlow> flows;
};

/// Why a thermal option cannot be followed; empty if all can.
std::string ThermalFault(const Invocation& call);

/// To be called only if there is no such reason.
ThermalChoice ThermalChoiceOf(const Invocation& call);

} // namespace strativo
