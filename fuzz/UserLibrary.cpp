#include "fuzz/LibraryChecks.h"
#include "fuzz/Targets.h"

namespace strativo::fuzz {

void UserLibrary(std::string_view bytes) {
    const auto content = ReadLibrary(ParseUserLibrary, bytes);
    // A quoted field keeps the line ends that stand in it.
    RequireSameWithWindowsLineEnds(ParseUserLibrary, bytes, "\r\"");
    RequireToldWhereLoaderStops(bytes, LibraryLayout::user, !content || content->wrongVersion);
    if (!content)
        return;
    RequireInvariants(content->library);
    Require(!content->wrongVersion || MaterialCount(content->library) == 0,
            "a user library of another version is empty");
    RequireSortable(content->library, userLibraryNumber);
}

} // namespace strativo::fuzz
