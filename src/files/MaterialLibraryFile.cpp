#include "files/MaterialLibraryFile.h"

#include "calc/CavityTypes.h"
#include "text/Lines.h"
#include "text/Numbers.h"
#include "text/RuntimeError.h"

#include <algorithm>
#include <optional>

namespace strativo {

namespace {

constexpr auto npos = std::string_view::npos;

Material& Slot(MaterialLibrary& library, int number) {
    if (number > MaterialLibrary::last)
        throw RuntimeError(ErrorNumber::subscriptOutOfRange);
    return library[number];
}

/// A record of the standard layout; nothing when it is of another version.
std::optional<Material> StandardRecord(std::string_view line) {
    const auto open = line.find('\'');
    if (open == npos || open == 0 || open + 2 >= line.size())
        return std::nullopt;
    Material material;
    material.code = LeadingNumber(line.substr(0, open));
    const std::string_view name = QuotedText(line);
    material.name = NormaliseMaterialName(name);
    PieceReader reader(line, open + name.size() + 2);
    reader.SkipBlanksAndControls();
    if (reader.AtLastCharacter())
        return std::nullopt;
    material.conductivity = LeadingNumber(reader.PieceBeforeBlank());
    reader.SkipBlanksAndControls();
    material.density = LeadingNumber(reader.PieceBeforeBlank());
    reader.SkipBlanksAndControls();
    material.specificHeat = LeadingNumber(reader.Piece());
    return material;
}

/// Takes the fields of the user layout one after the other.
class FieldReader {
public:
    explicit FieldReader(std::string_view bytes) : rest(bytes) {}

    bool AtEnd() const { return rest.empty(); }

    std::string_view Next() {
        rest.remove_prefix(std::min(rest.find_first_not_of(" \t"), rest.size()));
        return rest.starts_with('"') ? Quoted() : Unquoted();
    }

private:
    std::string_view Quoted() {
        const auto close = std::min(rest.find('"', 1), rest.size());
        const std::string_view field = rest.substr(1, close - 1);
        rest.remove_prefix(std::min(close + 1, rest.size()));
        Unquoted(); // what follows the quote up to the separator is no part of the field
        return field;
    }

    std::string_view Unquoted() {
        const auto end = std::min(rest.find_first_of(",\r\n"), rest.size());
        const std::string_view field = rest.substr(0, end);
        rest.remove_prefix(end);
        const bool lineEnd = rest.starts_with("\r\n");
        rest.remove_prefix(std::min<std::size_t>(lineEnd ? 2 : 1, rest.size()));
        return field;
    }

    std::string_view rest;
};

/// A record of the user layout; nothing when it is of another version.
std::optional<Material> UserRecord(std::string_view naming, std::string_view numbers) {
    const auto star = naming.find('*');
    if (star == npos || star == 0 || star + 2 >= naming.size())
        return std::nullopt;
    Material material;
    material.code = LeadingNumber(naming.substr(0, star));
    const auto blank = naming.find(' ', star);
    if (blank == npos)
        throw RuntimeError(ErrorNumber::invalidArgument);
    const auto nameStart = std::min(naming.find_first_not_of(' ', blank), naming.size());
    if (nameStart + 1 == naming.size())
        return std::nullopt;
    material.name = NormaliseMaterialName(naming.substr(nameStart));
    PieceReader reader(numbers, 0);
    material.conductivity = LeadingNumber(reader.PieceBeforeBlank());
    reader.SkipBlanksAndControls();
    if (reader.AtLastCharacter())
        return std::nullopt;
    material.density = LeadingNumber(reader.PieceBeforeBlank());
    reader.SkipBlanksAndControls();
    material.specificHeat = LeadingNumber(reader.Piece());
    return material;
}

} // namespace

std::string NormaliseMaterialName(std::string_view name) {
    constexpr char leftBrace = '{'; // inside the range on purpose: libraries in use rely on it
    std::string upper(name);
    for (char& c : upper)
        if (c >= 'a' && c <= leftBrace)
            c = static_cast<char>(c - 32);
    return upper;
}

LibraryContent ParseStandardLibrary(std::string_view bytes) {
    LibraryContent content;
    LineReader lines(bytes);
    int slot = 1;
    while (!lines.AtEnd() && !content.wrongVersion) {
        std::string_view line = lines.Next();
        if (line.ends_with('\r'))
            line.remove_suffix(1);
        if (line.empty())
            continue;
        if (auto material = StandardRecord(line))
            Slot(content.library, slot++) = std::move(*material);
        else
            content.wrongVersion = true;
    }
    if (content.wrongVersion)
        content.library[1].name = endOfLibrary;
    AppendCavityEntries(content.library, slot);
    return content;
}

LibraryContent ParseUserLibrary(std::string_view bytes) {
    LibraryContent content;
    FieldReader fields(bytes);
    int slot = 1;
    while (!fields.AtEnd() && !content.wrongVersion) {
        const std::string_view naming = fields.Next();
        const std::string_view numbers = fields.Next();
        if (naming.empty())
            continue;
        if (auto material = UserRecord(naming, numbers))
            Slot(content.library, slot++) = std::move(*material);
        else
            content.wrongVersion = true;
    }
    if (content.wrongVersion)
        EmptyLibrary(content.library);
    Slot(content.library, slot).name = endOfLibrary;
    return content;
}

} // namespace strativo
