#pragma once

#include "edit/LayerClipboard.h"
#include "edit/MaterialList.h"
#include "files/LibraryFindings.h"
#include "files/MaterialLibraryFile.h"
#include "fuzz/Invariants.h"

#include <algorithm>
#include <optional>
#include <string>
#include <string_view>
#include <tuple>
#include <vector>

namespace strativo::fuzz {

/// The library that the parser reads; nothing when it stops with a failure of a number.
template <class Parser>
std::optional<LibraryContent> ReadLibrary(Parser parse, std::string_view bytes) {
    try {
        const LibraryContent content = parse(bytes);
        if (!content.failure)
            return content;
        RequireNumber(RuntimeError(*content.failure),
                      {ErrorNumber::overflow, ErrorNumber::subscriptOutOfRange});
        return std::nullopt;
    } catch (const RuntimeError& error) {
        RequireNumber(error, {ErrorNumber::invalidArgument});
        return std::nullopt;
    }
}

/// The findings tell where the loader stops, and of nothing like it in a library that it reads.
inline void RequireToldWhereLoaderStops(std::string_view bytes, LibraryLayout layout, bool stops) {
    const std::vector<Finding> findings = FindingsOfLibrary(bytes, layout);
    const bool told = std::any_of(findings.begin(), findings.end(), [](const Finding& finding) {
        return finding.rule == "line-not-read" || finding.rule == "too-many-materials";
    });
    Require(told == stops, "what is found in a library agrees with its loader");
}

using MaterialKey = std::tuple<std::string, double, double, double, double>;

inline std::vector<MaterialKey> Materials(const MaterialLibrary& library) {
    std::vector<MaterialKey> keys;
    for (int row = 1; row <= MaterialCount(library); ++row) {
        const Material& m = library[row];
        keys.emplace_back(m.name, m.code, m.conductivity, m.density, m.specificHeat);
    }
    return keys;
}

/// Bytes without these characters read the same when their lines end as on Windows.
template <class Parser>
void RequireSameWithWindowsLineEnds(Parser parse, std::string_view bytes, const char* without) {
    if (bytes.find_first_of(without) != std::string_view::npos)
        return;
    std::string windows;
    for (const char c : bytes)
        windows += c == '\n' ? "\r\n" : std::string(1, c);
    const auto plain = ReadLibrary(parse, bytes);
    const auto other = ReadLibrary(parse, windows);
    Require(plain.has_value() == other.has_value(), "line ends do not decide whether a file reads");
    Require(!plain || Materials(plain->library) == Materials(other->library),
            "line ends do not change what is read");
}

/// Sorting keeps the materials, and each of them can be shown, and taken or refused.
inline void RequireSortable(const MaterialLibrary& library, std::int16_t number) {
    Project project;
    Library(project, number) = library;
    project.shownLibrary = number;
    auto before = Materials(library);
    std::sort(before.begin(), before.end());
    for (auto* const sort : {SortByName, SortByConductivity, SortByDensity, SortBySpecificHeat}) {
        sort(project);
        auto after = Materials(Library(project, number));
        std::sort(after.begin(), after.end());
        Require(after == before, "sorting keeps the materials");
    }
    Require(MaterialLines(project).size() == before.size(), "each material has its line");
    for (int row = 1; row <= static_cast<int>(before.size()); ++row) {
        project.selectedMaterial = row;
        try {
            Require(TakeMaterial(project), "a selected material is taken");
        } catch (const RuntimeError& error) {
            RequireNumber(error, {ErrorNumber::overflow});
        }
    }
}

} // namespace strativo::fuzz
