#include "benchmarks/ConstructionFileGenerator.h"
#include "benchmarks/GeneratedProject.h"
#include "calc/LayerList.h"
#include "calc/Relink.h"
#include "files/ConstructionWriter.h"

#include <iostream>
#include <map>
#include <valgrind/callgrind.h>

namespace strativo {
namespace {

/// Counting starts switched off, so that making the input is not counted.
template <class Work>
void Count(const Work& work) {
    CALLGRIND_TOGGLE_COLLECT;
    work();
    CALLGRIND_TOGGLE_COLLECT;
}

std::string FileBytes() {
    GeneratedFile content;
    content.constructions = 2000;
    return MakeConstructionFile(content);
}

void ReadAndLink(std::string_view bytes, Project& project) {
    Parse(bytes, project);
    RelinkLayers(project);
}

/// Each step returns a number that shows that it did its work.
std::size_t Read() {
    const std::string bytes = FileBytes();
    const auto project = StartedProject();
    Count([&] { ReadAndLink(bytes, *project); });
    return static_cast<std::size_t>(project->constructionCount);
}

std::size_t Write() {
    const auto project = StartedProject();
    ReadAndLink(FileBytes(), *project);
    std::string written;
    Count([&] { written = FormatConstructionFile(*project); });
    return written.size();
}

std::size_t Refresh() {
    const auto project = StartedProject();
    ReadAndLink(FileBytes(), *project);
    std::size_t lines = 0;
    Count([&] {
        for (const Construction& construction : project->constructions)
            lines += ViewLayerList(construction).lines.size();
    });
    return lines;
}

using Step = std::size_t (*)();
const std::map<std::string, Step> steps = {{"read", Read}, {"write", Write}, {"refresh", Refresh}};

} // namespace
} // namespace strativo

int main(int argc, char** argv) {
    const auto step = strativo::steps.find(argc == 2 ? argv[1] : "");
    if (step == strativo::steps.end()) {
        std::cerr << "usage: counted-work read|write|refresh\n";
        return 2;
    }
    return step->second() > 0 ? 0 : 1;
}
