#include "files/LayerPlausibility.h"

#include "calc/CavityTypes.h"
#include "calc/UValue.h"
#include "files/ConstructionWriter.h"
#include "files/MaterialPlausibility.h"
#include "text/Format.h"
#include "text/Numbers.h"

#include <array>
#include <charconv>
#include <cmath>

namespace strativo {

namespace {

/// Files hold metres, so millimetres have noise in their last digits, which is rounded away.
std::string Thickness(double value) {
    constexpr int honestDigits = 12;
    std::array<char, 32> text{};
    char* const end = text.data() + text.size();
    const auto digits =
        std::to_chars(text.data(), end, value, std::chars_format::general, honestDigits);
    std::from_chars(text.data(), digits.ptr, value);
    return FormatGeneral(value);
}

bool IsFraction(double value) {
    return value >= 0 && value <= 1;
}

class LayerChecks {
public:
    LayerChecks(const Layer& source, std::vector<BrokenRule>& target)
        : layer(source), broken(target) {}

    void CheckCode(bool linked) {
        const int code = layer.materialCode;
        if (code > 0 && !linked)
            Add("unlinked-material",
                "material" + SignPositionNumber(code) + " is not in the "
                    + (layer.library == userLibraryNumber ? "user" : "standard") + " library");
        if (code < 0 && !IsNamedCavity(code))
            Add("unknown-cavity", "no cavity type has the code " + FormatGeneral(code));
    }

    void CheckMaterial() {
        const double conductivity = AsDecimal(layer.conductivity);
        for (BrokenRule& rule :
             RulesBrokenByMaterial({conductivity, layer.density, layer.specificHeat}))
            broken.push_back(std::move(rule));
        constexpr double conductivityPerMillimetre = 200;
        if (layer.thickness > 0 && conductivity > conductivityPerMillimetre * layer.thickness)
            Add("thin-conductive", Thickness(layer.thickness) + " mm of conductivity "
                                       + FormatGeneral(conductivity)
                                       + " W/mK is hard on simulation programs");
    }

    void CheckThickness() {
        constexpr double thickest = 2000; // mm
        if (layer.thickness < 0)
            Add("negative-value", "thickness " + Thickness(layer.thickness) + " is negative");
        if (layer.thickness > thickest)
            Add("thickness-range", Thickness(layer.thickness) + " mm is more than 2000");
        CheckRounding(0.0005);
    }

    void CheckResistance() {
        constexpr double least = 0.01; // m2 C/W
        constexpr double most = 2;
        const double resistance = layer.thickness;
        if (resistance < 0)
            Add("negative-value", "resistance " + Thickness(resistance) + " is negative");
        if (resistance > 0 && (resistance < least || resistance > most))
            Add("cavity-resistance", Thickness(resistance)
                                         + " m2K/W is not between 0.01 and 2; a type 3 cavity "
                                           "takes its resistance, not its width");
        CheckRounding(5e-7);
    }

    void CheckAbsorption() {
        const double absorption = AsDecimal(layer.absorption);
        if (!IsFraction(absorption))
            Add("absorption-range",
                "absorption " + FormatGeneral(absorption) + " is not between 0 and 1");
    }

private:
    void Add(const char* rule, std::string text) { broken.push_back({rule, std::move(text)}); }

    void CheckRounding(double tolerance) {
        const double written = ThicknessAsWritten(layer);
        if (std::abs(written - layer.thickness) > tolerance)
            Add("rounded-thickness",
                Thickness(layer.thickness) + " is written to the file as " + Thickness(written));
    }

    const Layer& layer;
    std::vector<BrokenRule>& broken;
};

/// Sum of the layers' absorptions; 0 if one of them is impossible.
double TotalAbsorption(const Construction& construction) {
    double sum = 0;
    for (int slot = 1; slot <= construction.layers.HighestUsed(); ++slot) {
        const double absorption = AsDecimal(construction.layers[slot].absorption);
        if (!IsFraction(absorption))
            return 0;
        sum += absorption;
    }
    return sum;
}

} // namespace

std::vector<BrokenRule> RulesBrokenByLayer(const Layer& layer, std::int16_t type, bool linked) {
    std::vector<BrokenRule> broken;
    LayerChecks checks(layer, broken);
    checks.CheckCode(linked);
    if (layer.materialCode > 0 && linked)
        checks.CheckMaterial();
    if (layer.conductivity == resistanceCavity)
        checks.CheckResistance();
    else
        checks.CheckThickness();
    if (type == transparentType)
        checks.CheckAbsorption();
    return broken;
}

std::vector<BrokenRule> RulesBrokenByConstruction(const Construction& construction) {
    constexpr double leastUValue = 0.05; // W/m2 C
    constexpr double mostUValue = 7;
    constexpr double mostAbsorption = 1.0005; // leaves room for rounding to three decimals
    std::vector<BrokenRule> broken;
    const auto value = IndicativeUValue(construction.layers, LayerCount(construction));
    if (value && (*value < leastUValue || *value > mostUValue))
        broken.push_back({"u-range", "an indicative U-value of " + FormatNumber(*value, "0.00##")
                                         + " W/m2K is not between 0.05 and 7"});
    if (construction.type == transparentType && TotalAbsorption(construction) > mostAbsorption)
        broken.push_back({"absorption-sum", "the layers absorb more than there is"});
    return broken;
}

} // namespace strativo
