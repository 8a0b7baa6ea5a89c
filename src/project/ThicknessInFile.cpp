#include "project/ThicknessInFile.h"

#include "calc/CavityTypes.h"
#include "edit/Saying.h"
#include "files/ConstructionWriter.h"
#include "text/Format.h"
#include "text/Numbers.h"

#include <algorithm>
#include <cmath>

namespace strativo {

namespace {

void SayRounded(Project& project, const Layer& layer, double entered) {
    const bool isResistance = layer.materialCode == resistanceCavity;
    const double written = ThicknessAsWritten(layer);
    // Less than half of what the file's last decimal is worth is no more than a single's noise.
    if (std::abs(written - entered) < (isResistance ? 1e-5 : 1e-3))
        return;
    const std::string unit = isResistance ? " m2 C/W" : " mm";
    Say(project, FormatGeneral(entered) + unit + " will be "
                     + FormatNumber(written, isResistance ? "0.000" : "#0") + unit
                     + " in the construction file");
}

} // namespace

EntryResult EnterThicknessForFile(Project& project, int number, std::string_view text,
                                  Prompts& prompts) {
    const int before = InUse(project, number) ? project.constructions[number].currentLayer : 0;
    const EntryResult result = EnterThickness(project, number, text, prompts);
    if (result != EntryResult::accepted)
        return result;
    const Construction& construction = project.constructions[number];
    const int layer = std::clamp(before, 1, LayerCount(construction));
    SayRounded(project, construction.layers[layer], LeadingNumber(text));
    return result;
}

} // namespace strativo
