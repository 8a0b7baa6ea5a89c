#pragma once

#include <cstddef>
#include <string>

namespace strativo {

/// What a generated construction file holds. It ends when it has both the constructions and the
/// bytes asked for. One construction in ten is transparent; there is a glass type for every ten
/// constructions and a two-dimensional one for every 200.
struct GeneratedFile {
    int constructions = 0;
    std::size_t bytes = 0;
    int layers = 6;       ///< of each construction, 1 to 15; about one inner layer in six a cavity
    bool comments = true; ///< on one construction line in five, and some on lines of their own
    unsigned seed = 1;    ///< the same content for the same seed
    std::string library = "stdmat.lby"; ///< path of the standard library, as the file names it
};

/// The bytes of a construction file as the program writes it, comments apart.
std::string MakeConstructionFile(const GeneratedFile& content);

/// The bytes of the standard library for generated files, with up to 93 materials.
std::string MakeStandardLibrary(int materials = 93);

} // namespace strativo
