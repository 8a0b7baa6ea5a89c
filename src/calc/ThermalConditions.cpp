#include "calc/ThermalConditions.h"

#include "text/Numbers.h"
#include "text/RuntimeError.h"

namespace strativo {

std::optional<double> NumberWithin(std::string_view text, double lowest, double highest) {
    try {
        const auto number = WholeNumber(text);
        return number && *number >= lowest && *number <= highest ? number : std::nullopt;
    } catch (const RuntimeError&) {
        return std::nullopt; // too large for a double
    }
}

} // namespace strativo
