#include "fuzz/LibraryChecks.h"
#include "fuzz/Targets.h"

namespace strativo::fuzz {

namespace {

void RequireCavities(const MaterialLibrary& library) {
    constexpr int codes[] = {-3, -2, -1, -5, -6, -11};
    int row = MaterialCount(library) - static_cast<int>(std::size(codes));
    for (const int code : codes)
        Require(row >= 0 && library[++row].code == code, "the cavity entries close the library");
}

} // namespace

void StandardLibrary(std::string_view bytes) {
    const auto content = ReadLibrary(ParseStandardLibrary, bytes);
    RequireSameWithWindowsLineEnds(ParseStandardLibrary, bytes, "\r");
    RequireToldWhereLoaderStops(bytes, LibraryLayout::standard, !content || content->wrongVersion);
    if (!content)
        return;
    RequireInvariants(content->library);
    // A material of that name ends the library before its cavity entries.
    if (!content->wrongVersion && bytes.find(endOfLibrary) == std::string_view::npos)
        RequireCavities(content->library);
    RequireSortable(content->library, standardLibraryNumber);
}

} // namespace strativo::fuzz
