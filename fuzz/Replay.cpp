#include "fuzz/Targets.h"

#include <algorithm>
#include <exception>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <iterator>
#include <string>
#include <vector>

namespace {

using namespace strativo::fuzz;
namespace fs = std::filesystem;

struct Target {
    std::string_view name;
    void (*run)(std::string_view);
};

constexpr Target targets[] = {
    {"StandardLibrary", StandardLibrary},
    {"UserLibrary", UserLibrary},
    {"ConstructionFile", ConstructionFile},
    {"GlassImport", GlassImport},
    {"WriteRead", WriteRead},
    {"EditStory", EditStory},
    {"RecoveryCopy", RecoveryCopy},
    {"Thermal", Thermal},
};

std::string Bytes(const fs::path& path) {
    std::ifstream file(path, std::ios::binary);
    if (!file)
        throw std::runtime_error("cannot read " + path.string());
    return {std::istreambuf_iterator<char>(file), {}};
}

std::vector<fs::path> Inputs(const fs::path& path) {
    std::vector<fs::path> inputs;
    if (fs::is_regular_file(path))
        return {path};
    for (const auto& entry : fs::directory_iterator(path))
        inputs.push_back(entry.path());
    std::sort(inputs.begin(), inputs.end());
    return inputs;
}

bool Passes(const Target& target, const fs::path& input) {
    try {
        target.run(Bytes(input));
        return true;
    } catch (const std::exception& error) {
        std::cerr << input.string() << ": " << error.what() << '\n';
        return false;
    }
}

int Run(const Target& target, const fs::path& path) {
    const std::vector<fs::path> inputs = Inputs(path);
    const auto passed = std::count_if(inputs.begin(), inputs.end(),
                                      [&](const fs::path& input) { return Passes(target, input); });
    std::cout << target.name << ": " << passed << " of " << inputs.size() << " inputs passed\n";
    return !inputs.empty() && passed == static_cast<std::ptrdiff_t>(inputs.size()) ? 0 : 1;
}

} // namespace

/// replay TARGET PATH: runs the target over an input, or over all inputs in a folder.
int main(int argc, char** argv) {
    const auto* const target =
        argc == 3 ? std::find_if(std::begin(targets), std::end(targets),
                                 [&](const Target& t) { return t.name == argv[1]; })
                  : std::end(targets);
    if (target == std::end(targets)) {
        std::cerr << "usage: replay TARGET FILE|FOLDER\n";
        return 2;
    }
    try {
        return Run(*target, argv[2]);
    } catch (const std::exception& error) {
        std::cerr << error.what() << '\n';
        return 2;
    }
}
