#include "cli/CsvOutput.h"

#include "calc/UValue.h"
#include "cli/TextOutput.h"
#include "exchange/CsvText.h"
#include "text/Format.h"
#include "text/Numbers.h"

#include <ostream>

namespace strativo {

const char csvHead[] =
    "file,construction,name,type,u_value,slot,layer,library,material_code,thickness_mm,"
    "conductivity,density,specific_heat,absorption,resistance\r\n";

namespace {

void WriteLayer(std::ostream& out, const Layer& layer) {
    const float resistance = LayerListResistance(layer);
    out << CsvCell(ShownText(layer.name)) << ',' << layer.library << ',' << layer.materialCode
        << ',' << FormatGeneral(layer.thickness) << ','
        << FormatGeneral(AsDecimal(layer.conductivity)) << ',' << FormatGeneral(layer.density)
        << ',' << FormatGeneral(layer.specificHeat) << ','
        << FormatGeneral(AsDecimal(layer.absorption)) << ','
        << (resistance == 0 ? std::string() : FormatGeneral(AsDecimal(resistance)));
}

} // namespace

void WriteCsvRows(std::ostream& out, const Project& project, const std::string& file) {
    for (const int number : ConstructionsInUse(project)) {
        const Construction& construction = project.constructions[number];
        const std::string start = CsvCell(ShownPath(file)) + ',' + std::to_string(number) + ','
                                  + CsvCell(ShownText(construction.name)) + ','
                                  + std::to_string(construction.type) + ','
                                  + UValueText(construction) + ',';
        for (const int slot : FilledSlots(construction)) {
            out << start << slot << ',';
            WriteLayer(out, construction.layers[slot]);
            out << "\r\n";
        }
    }
}

} // namespace strativo
