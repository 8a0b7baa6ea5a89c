#include "files/MaterialLibraryFile.h"

#include "calc/CavityTypes.h"
#include "files/LibraryRecords.h"
#include "text/Lines.h"
#include "text/RuntimeError.h"

#include <utility>

namespace strativo {

namespace {

Material& Slot(MaterialLibrary& library, int number) {
    if (number > MaterialLibrary::last)
        throw RuntimeError(ErrorNumber::subscriptOutOfRange);
    return library[number];
}

/// Reads all records; `slot` is that of the next material.
void ReadStandardRecords(std::string_view bytes, LibraryContent& content, int& slot) {
    LineReader lines(bytes);
    while (!lines.AtEnd() && !content.wrongVersion) {
        std::string_view line = lines.Next();
        if (line.ends_with('\r'))
            line.remove_suffix(1);
        if (line.empty())
            continue;
        if (auto record = ReadStandardRecord(line))
            Slot(content.library, slot++) = std::move(record->material);
        else
            content.wrongVersion = true;
    }
}

void ReadUserRecords(std::string_view bytes, LibraryContent& content, int& slot) {
    FieldReader fields(bytes);
    while (!fields.AtEnd() && !content.wrongVersion) {
        const std::string_view naming = fields.Next();
        const std::string_view numbers = fields.Next();
        if (naming.empty())
            continue;
        if (auto record = ReadUserRecord(naming, numbers))
            Slot(content.library, slot++) = std::move(record->material);
        else
            content.wrongVersion = true;
    }
}

/// Runs a step and records its failure. Error 5 passes through, since another file can put it
/// right.
template <class Step>
void Try(LibraryContent& content, Step step) {
    try {
        step();
    } catch (const RuntimeError& error) {
        if (error.Number() == ErrorNumber::invalidArgument)
            throw;
        content.failure = error.Number();
    }
}

void EndBefore(MaterialLibrary& library, int slot) {
    if (slot <= MaterialLibrary::last)
        library[slot].name = endOfLibrary;
}

} // namespace

std::string NormaliseMaterialName(std::string_view name) {
    constexpr char leftBrace = '{'; // on purpose within the range: existing libraries rely on it
    std::string upper(name);
    for (char& c : upper)
        if (c >= 'a' && c <= leftBrace)
            c = static_cast<char>(c - 32);
    return upper;
}

LibraryContent ParseStandardLibrary(std::string_view bytes) {
    LibraryContent content;
    int slot = 1;
    Try(content, [&] { ReadStandardRecords(bytes, content, slot); });
    if (content.failure) {
        EndBefore(content.library, slot);
        return content;
    }
    if (content.wrongVersion)
        content.library[1].name = endOfLibrary;
    Try(content, [&] { AppendCavityEntries(content.library, slot); });
    return content;
}

LibraryContent ParseUserLibrary(std::string_view bytes) {
    LibraryContent content;
    int slot = 1;
    Try(content, [&] { ReadUserRecords(bytes, content, slot); });
    if (content.failure) {
        EndBefore(content.library, slot);
        return content;
    }
    if (content.wrongVersion)
        content.library = EmptyLibrary();
    Try(content, [&] { Slot(content.library, slot).name = endOfLibrary; });
    return content;
}

} // namespace strativo
