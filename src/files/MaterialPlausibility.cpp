#include "files/MaterialPlausibility.h"

#include "text/Format.h"

namespace strativo {

namespace {

bool IsBetween(double value, double least, double most) {
    return value >= least && value <= most;
}

/// Water stores more heat than any solid.
bool IsWater(const MaterialValues& values) {
    return IsBetween(values.density, 900, 1100) && values.specificHeat >= 3900;
}

/// Whether two values fit no material as they are, but would if exchanged. Each line describes a
/// corner that no known building material reaches: heavy with a low specific heat, more specific
/// heat than wood and plastics, light but a good conductor, heavy but an insulator.
bool LookExchanged(const MaterialValues& values) {
    const double density = values.density;
    const double heat = values.specificHeat;
    const double conductivity = values.conductivity;
    if (density <= 0 || heat <= 0)
        return false;
    return (heat < 300 && IsBetween(density, 300, 4500) && conductivity < 10)
           || (heat > 2300 && density <= 2300 && !IsWater(values))
           || (conductivity >= 0.5 && density < 900 && heat > 1.3 * density)
           || (conductivity > 0 && conductivity < 0.15 && density > 1200 && heat < 1200);
}

class Checks {
public:
    explicit Checks(const MaterialValues& material) : values(material) {}

    std::vector<BrokenRule> Run() {
        const bool exchanged = LookExchanged(values);
        if (exchanged)
            broken.push_back({"density-heat-swapped",
                              "density " + FormatGeneral(values.density) + " and specific heat "
                                  + FormatGeneral(values.specificHeat) + " look exchanged"});
        CheckSign("conductivity", values.conductivity);
        CheckSign("density", values.density);
        CheckSign("specific heat", values.specificHeat);
        CheckRange("conductivity-range", "conductivity", values.conductivity, "W/mK", 0.003, 450);
        if (!exchanged) {
            CheckRange("density-range", "density", values.density, "kg/m3", 1, 12000);
            CheckRange("heat-range", "specific heat", values.specificHeat, "J/kgK", 100, 4300);
        }
        CheckMissing();
        return std::move(broken);
    }

private:
    void CheckSign(const char* quantity, double value) {
        if (value < 0)
            broken.push_back({"negative-value",
                              std::string(quantity) + " " + FormatGeneral(value) + " is negative"});
    }

    void CheckRange(const char* rule, const char* quantity, double value, const char* unit,
                    double least, double most) {
        if (value > 0 && !IsBetween(value, least, most))
            broken.push_back({rule, std::string(quantity) + " " + FormatGeneral(value) + " " + unit
                                        + " is not between " + FormatGeneral(least) + " and "
                                        + FormatGeneral(most)});
    }

    void CheckMissing() {
        if (values.conductivity == 0)
            broken.push_back({"no-conductivity", "the material has no conductivity"});
        if (values.density == 0)
            broken.push_back({"no-heat-storage", "the material has no density"});
        else if (values.specificHeat == 0)
            broken.push_back({"no-heat-storage", "the material has no specific heat"});
    }

    const MaterialValues& values;
    std::vector<BrokenRule> broken;
};

} // namespace

std::vector<BrokenRule> RulesBrokenByMaterial(const MaterialValues& values) {
    return Checks(values).Run();
}

} // namespace strativo
