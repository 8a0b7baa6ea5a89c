#pragma once

#include "model/Material.h"

#include <optional>
#include <string_view>

namespace strativo {

/// A record of a material library, and the texts in the file that it was read from.
struct LibraryRecord {
    Material material;
    std::string_view code;
    std::string_view name; ///< as written, before it was made capital
    std::string_view conductivity;
    std::string_view density;
    std::string_view specificHeat;
    std::string_view rest; ///< what follows the numbers
};

/// A record of the standard layout, one line without its line end; nothing when it is of another
/// version. Run-time error 5 or 6.
std::optional<LibraryRecord> ReadStandardRecord(std::string_view line);

/// A record of the user layout, which are two fields; likewise.
std::optional<LibraryRecord> ReadUserRecord(std::string_view naming, std::string_view numbers);

/// Takes the fields of the user layout one after the other.
class FieldReader {
public:
    explicit FieldReader(std::string_view bytes) : all(bytes), rest(bytes) {}

    bool AtEnd() const { return rest.empty(); }
    /// The next field, without the double quotes around it.
    std::string_view Next();
    /// Where the field just taken began, its quote included.
    std::size_t Start() const { return start; }
    /// Where the next field begins, blanks before it included.
    std::size_t Position() const { return all.size() - rest.size(); }
    /// What stood between the closing quote and the separator, and is no part of the field.
    std::string_view BehindQuote() const { return behindQuote; }
    /// Goes on from this position, which is not before the present one.
    void MoveTo(std::size_t position) { rest = all.substr(position); }

private:
    std::string_view Quoted();
    std::string_view Unquoted();

    std::string_view all;
    std::string_view rest;
    std::string_view behindQuote;
    std::size_t start = 0;
};

} // namespace strativo
