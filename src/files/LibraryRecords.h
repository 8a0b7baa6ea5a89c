#pragma once

#include "model/Material.h"

#include <optional>
#include <string_view>

namespace strativo {

/// A record of a material library and the pieces of text that it was read from.
struct LibraryRecord {
    Material material;
    std::string_view code;
    std::string_view name; ///< as written, before it was made capital
    std::string_view conductivity;
    std::string_view density;
    std::string_view specificHeat;
    std::string_view rest; ///< what follows the numbers
};

/// Reads a record of the standard layout, one line without its line end; nothing if it is of
/// another version. Throws run-time error 5 or 6.
std::optional<LibraryRecord> ReadStandardRecord(std::string_view line);

/// Reads a record of the user layout, which consists of two fields, in the same way.
std::optional<LibraryRecord> ReadUserRecord(std::string_view naming, std::string_view numbers);

/// Goes through the fields of the user layout.
class FieldReader {
public:
    explicit FieldReader(std::string_view bytes) : all(bytes), rest(bytes) {}

    bool AtEnd() const { return rest.empty(); }
    /// The next field, without the double quotes around it.
    std::string_view Next();
    /// Where the field just taken began, including its quote.
    std::size_t Start() const { return start; }
    /// Where the next field begins, including blanks before it.
    std::size_t Position() const { return all.size() - rest.size(); }
    /// The text between the closing quote and the separator, which is not part of the field.
    std::string_view BehindQuote() const { return behindQuote; }
    /// Continues from this position, which must not lie before the present one.
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
