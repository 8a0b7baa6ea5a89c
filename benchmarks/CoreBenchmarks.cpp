#include "benchmarks/ConstructionFileGenerator.h"
#include "benchmarks/GeneratedProject.h"
#include "benchmarks/LineScan.h"
#include "calc/Relink.h"
#include "edit/MaterialList.h"
#include "files/ConstructionWriter.h"
#include "files/MaterialLibraryFile.h"

#include <benchmark/benchmark.h>
#include <ctime>
#include <memory>

namespace strativo {
namespace {

/// Processor time, so that other programs on the machine do not count.
double Now() {
    timespec time{};
    clock_gettime(CLOCK_THREAD_CPUTIME_ID, &time);
    return static_cast<double>(time.tv_sec) + static_cast<double>(time.tv_nsec) / 1e9;
}

template <class Work>
double Seconds(const Work& work) {
    const double start = Now();
    work();
    return Now() - start;
}

/// Seconds to scan the bytes once; few bytes are scanned often, since the clock is coarse.
double ScanSeconds(std::string_view bytes) {
    const std::size_t times = 1 + (1 << 20) / (bytes.size() + 1);
    const double seconds = Seconds([&] {
        for (std::size_t i = 0; i < times; ++i)
            benchmark::DoNotOptimize(CountLineEnds(bytes));
    });
    return seconds / static_cast<double>(times);
}

/// Times the work on a fresh subject, next to a scan of the same bytes for line ends. The counter
/// "scans" is the work's time in such scans: it depends less on the machine than seconds do.
template <class MakeSubject, class Work>
void Measure(benchmark::State& state, std::string_view bytes, const MakeSubject& makeSubject,
             const Work& work) {
    double worked = 0;
    double scanned = 0;
    for (auto _ : state) {
        auto subject = makeSubject();
        scanned += ScanSeconds(bytes);
        const double seconds = Seconds([&] { work(*subject); });
        worked += seconds;
        state.SetIterationTime(seconds);
    }
    state.counters["scans"] = worked / scanned;
    state.SetBytesProcessed(state.iterations() * static_cast<std::int64_t>(bytes.size()));
}

std::string FileBytes(const benchmark::State& state) {
    GeneratedFile content;
    content.constructions = static_cast<int>(state.range(0));
    return MakeConstructionFile(content);
}

std::unique_ptr<Project> ParsedProject(std::string_view bytes) {
    auto project = StartedProject();
    Parse(bytes, *project);
    return project;
}

void Read(benchmark::State& state) {
    const std::string bytes = FileBytes(state);
    Measure(state, bytes, StartedProject, [&](Project& project) { Parse(bytes, project); });
}

void Relink(benchmark::State& state) {
    const std::string bytes = FileBytes(state);
    Measure(
        state, bytes, [&] { return ParsedProject(bytes); },
        [&](Project& project) { RelinkLayers(project); });
}

void Write(benchmark::State& state) {
    const std::string bytes = FileBytes(state);
    const std::shared_ptr<Project> linked = ParsedProject(bytes);
    RelinkLayers(*linked);
    Measure(
        state, bytes, [&] { return linked; },
        [](const Project& project) { benchmark::DoNotOptimize(FormatConstructionFile(project)); });
}

/// The argument is the number of materials; a library cannot hold more than 99.
void SortLibrary(benchmark::State& state) {
    const std::string bytes = MakeStandardLibrary(static_cast<int>(state.range(0)));
    const MaterialLibrary library = ParseStandardLibrary(bytes).library;
    const auto unsorted = [&] {
        auto project = StartedProject();
        project->standardLibrary = library;
        return project;
    };
    Measure(state, bytes, unsorted, [](Project& project) { SortByName(project); });
}

BENCHMARK(Read)->RangeMultiplier(10)->Range(100, 100'000)->UseManualTime();
BENCHMARK(Relink)->RangeMultiplier(10)->Range(100, 100'000)->UseManualTime();
BENCHMARK(Write)->RangeMultiplier(10)->Range(100, 100'000)->UseManualTime();
BENCHMARK(SortLibrary)->Arg(10)->Arg(30)->Arg(93)->UseManualTime();

} // namespace
} // namespace strativo
