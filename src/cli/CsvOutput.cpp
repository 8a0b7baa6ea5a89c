#include "cli/CsvOutput.h"

#include "calc/UValue.h"
#include "cli/TextOutput.h"
#include "text/Format.h"
#include "text/Numbers.h"

#include <ostream>

namespace strativo {

namespace {

void WriteLayer(std::ostream& out, const Layer& layer) {
    const float resistance = LayerListResistance(layer);
    out << CsvField(ShownText(layer.name)) << ',' << layer.library << ',' << layer.materialCode
        << ',' << FormatGeneral(layer.thickness) << ','
        << FormatGeneral(AsDecimal(layer.conductivity)) << ',' << FormatGeneral(layer.density)
        << ',' << FormatGeneral(layer.specificHeat) << ','
        << FormatGeneral(AsDecimal(layer.absorption)) << ','
        << (resistance == 0 ? std::string() : FormatGeneral(AsDecimal(resistance)));
}

} // namespace

std::string CsvField(const std::string& utf8) {
    if (utf8.find_first_of(",\"") == std::string::npos)
        return utf8;
    std::string quoted = "\"";
    for (const char c : utf8)
        quoted += c == '"' ? std::string("\"\"") : std::string(1, c);
    return quoted + '"';
}

void WriteCsvHead(std::ostream& out) {
    out << "file,construction,name,type,u_value,slot,layer,library,material_code,thickness_mm,"
           "conductivity,density,specific_heat,absorption,resistance\r\n";
}

void WriteCsvRows(std::ostream& out, const Project& project, const std::string& file) {
    for (int number = 1; number <= project.constructions.Size(); ++number) {
        if (!InUse(project, number))
            continue;
        const Construction& construction = project.constructions[number];
        const std::string start = CsvField(ShownPath(file)) + ',' + std::to_string(number) + ','
                                  + CsvField(ShownText(construction.name)) + ','
                                  + std::to_string(construction.type) + ','
                                  + UValueText(construction) + ',';
        for (int slot = 1; slot <= construction.layers.HighestUsed(); ++slot) {
            if (construction.layers[slot].name.empty())
                continue;
            out << start << slot << ',';
            WriteLayer(out, construction.layers[slot]);
            out << "\r\n";
        }
    }
}

} // namespace strativo
