#include "fuzz/ReadsBack.h"

#include "files/ConstructionWriter.h"
#include "fuzz/ProjectSupport.h"
#include "text/Lines.h"

#include <algorithm>

namespace strativo::fuzz {

namespace {

/// Reads the bytes with the libraries of another project, and writes them again.
std::string WrittenAgain(const std::string& written, const Project& withLibraries) {
    Project project;
    project.standardLibraryFile.clear(); // a file may name none
    project.standardLibrary = withLibraries.standardLibrary;
    project.userLibrary = withLibraries.userLibrary;
    project.standardLoaded = withLibraries.standardLoaded;
    project.userLoaded = withLibraries.userLoaded;
    Require(ParseAndLink(written, project), "what was written can be read");
    RequireInvariants(project);
    return FormatConstructionFile(project);
}

/// A negative number too small for its pattern is written as "-0.000" and comes back as 0.
void DropSignsOfZeros(std::string& line) {
    for (auto sign = line.find("-0."); sign != std::string::npos; sign = line.find("-0.", sign)) {
        const auto end = std::min(line.find_first_not_of("0.", sign + 1), line.size());
        const bool isZero = end == line.size() || std::string_view(" ,\r").find(line[end]) < 3;
        line.erase(sign, isZero ? 1 : 0);
        sign += isZero ? 0 : 1;
    }
}

/// The text without lines that are only comments, and without the layers' names.
std::string WithoutComments(std::string_view text) {
    std::string kept;
    LineReader lines(text);
    while (!lines.AtEnd()) {
        std::string line(lines.Next());
        DropSignsOfZeros(line);
        if (!line.starts_with('*'))
            kept.append(line.substr(0, line.find('*'))).append("\n");
    }
    return kept;
}

/// The part line can say where each layer's material is: by its number, or by a cavity's code.
bool MaterialsHaveNumbers(const Project& project) {
    for (const Construction& construction : project.constructions)
        for (int slot = 1; slot <= construction.layers.HighestUsed(); ++slot) {
            const Layer& layer = construction.layers[slot];
            if (layer.materialCode <= 0 && layer.conductivity != layer.materialCode)
                return false;
        }
    return true;
}

} // namespace

void RequireReadsBack(const Project& project, const std::string& written) {
    const std::string second = WrittenAgain(written, project);
    const std::string third = WrittenAgain(second, project);
    Require(second == third, "the second and the third writing are the same bytes");
    if (MaterialsHaveNumbers(project))
        Require(WithoutComments(written) == WithoutComments(second),
                "but for its comments a project comes back as it was");
}

} // namespace strativo::fuzz
