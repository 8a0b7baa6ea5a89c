#pragma once

#include "port/Message.h"
#include "text/RuntimeError.h"

#include <string>

namespace strativo {

/// The messages for numbered failures of one kind of file.
struct FileMessages {
    const char* wrongVersion; ///< error 5
    const char* missing;      ///< error 53
    const char* noDrive;      ///< error 68
    const char* noPath;       ///< error 76
    const char* beforeNumber; ///< any other error: this, its number and " occurred."

    std::string Text(ErrorNumber number) const;
};

// "(p)" and "(g)" are fixed marks that tell the two readers of construction files apart.
extern const FileMessages standardLibraryMessages;
extern const FileMessages userLibraryMessages;
extern const FileMessages constructionFileMessages;
extern const FileMessages glassImportMessages;

/// Precedes the operating system's message.
inline constexpr char savedButNotSafe[] =
    "The file was saved, but is not yet safe against a loss of power: ";

inline constexpr char incorrectFormat[] = "Construction file is incorrect format";

/// The path above a text about that file.
Message AboutFile(const std::string& path, const std::string& text);

/// "house.con in /a/folder" in UTF-8: the name first, since the end may be cut off.
std::string NameAndFolder(const std::string& path);

} // namespace strativo
