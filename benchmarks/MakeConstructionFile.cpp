#include "benchmarks/ConstructionFileGenerator.h"

#include <CLI/CLI.hpp>
#include <filesystem>
#include <fstream>
#include <iostream>

namespace {

constexpr char about[] = "Writes a construction file of any size, for measuring and trying out, "
                         "and the standard library stdmat.lby that it needs into its folder.";

bool WriteFile(const std::filesystem::path& path, const std::string& bytes) {
    std::ofstream file(path, std::ios::binary);
    file << bytes;
    file.close();
    if (!file)
        std::cerr << "make-construction-file: " << path << " could not be written\n";
    return !file.fail();
}

int Write(const std::filesystem::path& path, strativo::GeneratedFile content, double megabytes) {
    if (content.constructions == 0 && megabytes == 0) {
        std::cerr << "make-construction-file: --constructions or --megabytes is needed\n";
        return 2;
    }
    content.bytes = static_cast<std::size_t>(megabytes * 1e6);
    const bool written =
        WriteFile(path.parent_path() / content.library, strativo::MakeStandardLibrary())
        && WriteFile(path, strativo::MakeConstructionFile(content));
    return written ? 0 : 3;
}

} // namespace

int main(int argc, char** argv) {
    CLI::App app(about, "make-construction-file");
    std::string path;
    strativo::GeneratedFile content;
    double megabytes = 0;
    bool noComments = false;
    app.add_option("FILE.con", path, "the file to write")->required();
    app.add_option("--constructions", content.constructions, "at least so many constructions")
        ->check(CLI::Range(1, 100'000'000));
    app.add_option("--megabytes", megabytes, "at least so large")->check(CLI::Range(0.0, 1e5));
    app.add_option("--layers", content.layers, "layers of each construction (default 6)")
        ->check(CLI::Range(1, 15));
    app.add_option("--seed", content.seed, "another seed gives another file (default 1)");
    app.add_flag("--no-comments", noComments, "as the program writes it, without comments");
    CLI11_PARSE(app, argc, argv);
    content.comments = !noComments;
    return Write(path, content, megabytes);
}
