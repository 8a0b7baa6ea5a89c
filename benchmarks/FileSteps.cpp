#include "benchmarks/Clock.h"
#include "benchmarks/LineScan.h"
#include "benchmarks/NoPrompts.h"
#include "files/FileAccess.h"
#include "project/FileCommands.h"
#include "project/NewProject.h"
#include "project/ReadConstructionFile.h"

#include <cstdio>
#include <fcntl.h>
#include <functional>
#include <iostream>
#include <map>
#include <memory>
#include <stdexcept>
#include <sys/stat.h>
#include <unistd.h>

// Waiting for the disk is left out of all steps, since it would hide everything else.
extern "C" int fsync(int) {
    return 0;
}

namespace strativo {
namespace {

constexpr char usage[] =
    "usage: file-steps scan|read|write|write-at-once FILE.con [TARGET]\n"
    "Does one thing with a construction file and prints how long that took (ns).\n"
    "scan           reads the bytes and looks for the line ends\n"
    "read           reads the project and links it to its library\n"
    "write          writes the project, read before, to a new TARGET\n"
    "write-at-once  writes the bytes, read before, to a new TARGET\n";

void PrintTimeOf(const std::function<void()>& step) {
    const long long start = Nanoseconds();
    step();
    std::printf("step=%lld\n", Nanoseconds() - start);
}

void Require(bool done) {
    if (!done)
        throw std::runtime_error("the step failed");
}

/// As little as a program can do that looks at every line: the memory is not even cleared.
void ScanLines(const std::string& path) {
    const int file = open(path.c_str(), O_RDONLY | O_CLOEXEC);
    struct stat status {};
    Require(fstat(file, &status) == 0);
    const auto size = static_cast<std::size_t>(status.st_size);
    const std::unique_ptr<char[]> bytes(new char[size]);
    Require(read(file, bytes.get(), size) == status.st_size);
    Require(CountLineEnds({bytes.get(), size}) > 0);
    close(file);
}

void Scan(const std::string& path, const std::string&) {
    PrintTimeOf([&] { ScanLines(path); });
}

void ReadProject(Project& project, const std::string& path) {
    NoPrompts prompts;
    StartUp(project, Settings());
    ReadConstructionFile(project, path, prompts);
    Require(project.standardLoaded && project.constructionCount > 0);
}

void Read(const std::string& path, const std::string&) {
    Project project;
    PrintTimeOf([&] { ReadProject(project, path); });
}

void Write(const std::string& path, const std::string& target) {
    Project project;
    NoPrompts prompts;
    ReadProject(project, path);
    project.constructionFile = target;
    PrintTimeOf([&] { Require(WriteConstructionFile(project, prompts)); });
}

void WriteAtOnce(const std::string& path, const std::string& target) {
    const std::string bytes = ReadFileBytes(path);
    PrintTimeOf([&] {
        const int file = open(target.c_str(), O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC, 0666);
        Require(write(file, bytes.data(), bytes.size()) == static_cast<ssize_t>(bytes.size()));
        Require(close(file) == 0);
    });
}

using Step = void (*)(const std::string& path, const std::string& target);

const std::map<std::string, Step> steps = {
    {"scan", Scan}, {"read", Read}, {"write", Write}, {"write-at-once", WriteAtOnce}};

} // namespace
} // namespace strativo

int main(int argc, char** argv) {
    const auto step = strativo::steps.find(argc > 1 ? argv[1] : "");
    const bool writes = argc > 1 && std::string(argv[1]).starts_with("write");
    if (step == strativo::steps.end() || argc != (writes ? 4 : 3)) {
        std::cerr << strativo::usage;
        return 2;
    }
    const std::string target = writes ? argv[3] : "";
    unlink(target.c_str());
    try {
        step->second(argv[2], target);
    } catch (const std::exception& error) {
        std::cerr << "file-steps: " << error.what() << '\n';
        return 1;
    }
    return 0;
}
