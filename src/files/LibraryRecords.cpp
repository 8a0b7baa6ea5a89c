#include "files/LibraryRecords.h"

#include "files/MaterialLibraryFile.h"
#include "text/Lines.h"
#include "text/Numbers.h"
#include "text/RuntimeError.h"

#include <algorithm>

namespace strativo {

namespace {

constexpr auto npos = std::string_view::npos;

double Take(std::string_view& piece, std::string_view text) {
    piece = text;
    return LeadingNumber(text);
}

/// The text that follows the piece.
std::string_view Behind(std::string_view text, std::string_view piece) {
    return text.substr(static_cast<std::size_t>(piece.data() - text.data()) + piece.size());
}

} // namespace

std::optional<LibraryRecord> ReadStandardRecord(std::string_view line) {
    const auto open = line.find('\'');
    if (open == npos || open == 0 || open + 2 >= line.size())
        return std::nullopt;
    LibraryRecord record;
    Material& material = record.material;
    material.code = Take(record.code, line.substr(0, open));
    record.name = QuotedText(line);
    material.name = NormaliseMaterialName(record.name);
    PieceReader reader(line, open + record.name.size() + 2);
    reader.SkipBlanksAndControls();
    if (reader.AtLastCharacter())
        return std::nullopt;
    material.conductivity = Take(record.conductivity, reader.PieceBeforeBlank());
    reader.SkipBlanksAndControls();
    material.density = Take(record.density, reader.PieceBeforeBlank());
    reader.SkipBlanksAndControls();
    material.specificHeat = Take(record.specificHeat, reader.Piece());
    record.rest = Behind(line, record.specificHeat);
    return record;
}

std::optional<LibraryRecord> ReadUserRecord(std::string_view naming, std::string_view numbers) {
    const auto star = naming.find('*');
    if (star == npos || star == 0 || star + 2 >= naming.size())
        return std::nullopt;
    LibraryRecord record;
    Material& material = record.material;
    material.code = Take(record.code, naming.substr(0, star));
    const auto blank = naming.find(' ', star);
    if (blank == npos)
        throw RuntimeError(ErrorNumber::invalidArgument);
    const auto nameStart = std::min(naming.find_first_not_of(' ', blank), naming.size());
    if (nameStart + 1 == naming.size())
        return std::nullopt;
    record.name = naming.substr(star + 1);
    material.name = NormaliseMaterialName(naming.substr(nameStart));
    PieceReader reader(numbers, 0);
    material.conductivity = Take(record.conductivity, reader.PieceBeforeBlank());
    reader.SkipBlanksAndControls();
    if (reader.AtLastCharacter())
        return std::nullopt;
    material.density = Take(record.density, reader.PieceBeforeBlank());
    reader.SkipBlanksAndControls();
    material.specificHeat = Take(record.specificHeat, reader.Piece());
    record.rest = Behind(numbers, record.specificHeat);
    return record;
}

std::string_view FieldReader::Next() {
    rest.remove_prefix(std::min(rest.find_first_not_of(" \t"), rest.size()));
    start = Position();
    behindQuote = {};
    return rest.starts_with('"') ? Quoted() : Unquoted();
}

std::string_view FieldReader::Quoted() {
    const auto close = std::min(rest.find('"', 1), rest.size());
    const std::string_view field = rest.substr(1, close - 1);
    rest.remove_prefix(std::min(close + 1, rest.size()));
    behindQuote = Unquoted();
    return field;
}

std::string_view FieldReader::Unquoted() {
    const auto end = std::min(rest.find_first_of(",\r\n"), rest.size());
    const std::string_view field = rest.substr(0, end);
    rest.remove_prefix(end);
    const bool lineEnd = rest.starts_with("\r\n");
    rest.remove_prefix(std::min<std::size_t>(lineEnd ? 2 : 1, rest.size()));
    return field;
}

} // namespace strativo
