#pragma once

#include "support/TestProject.h"

#include <fstream>
#include <iterator>
#include <string>

namespace strativo {

/// Three materials in the standard layout.
inline constexpr char standardLibraryBytes[] = "12'FACE BRICK' 0.84 1700 800\r\n"
                                               "30'Plaster' 0.5 1300 1000\r\n"
                                               "7'ALUMINIUM' 160 2800 880\r\n";

/// Two materials in the user layout.
inline constexpr char userLibraryBytes[] = "12* HEMP,0.04 40 1600\r\n"
                                           "15* CORK,0.045 150 1880\r\n";

/// Text lines with the line ends of files.
inline std::string Lines(const std::vector<std::string>& lines) {
    std::string bytes;
    for (const std::string& line : lines)
        bytes += line + "\r\n";
    return bytes;
}

/// The values of a glass table, for matchers.
inline std::vector<float> Values(const AngularValues& table) {
    return {table.begin(), table.end()};
}

/// The bytes of a file of the source tree.
inline std::string SourceFile(const std::string& path) {
    std::ifstream file(std::string(STRATIVO_SOURCE) + "/" + path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

} // namespace strativo
