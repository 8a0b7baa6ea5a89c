#include "robustness/FaultyRun.h"

#include <algorithm>
#include <array>
#include <csignal>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <poll.h>
#include <sstream>
#include <stdexcept>
#include <sys/wait.h>
#include <unistd.h>

namespace strativo {

namespace {

/// Beside the working directory, so that it does not count as a file of the folder under test.
std::string LogPath() {
    return std::filesystem::current_path().string() + ".calls";
}

[[noreturn]] void BecomeDriver(int output, const std::string& command, const std::string& file,
                               const std::string& faults) {
    dup2(output, STDOUT_FILENO);
    close(output);
    setenv("LD_PRELOAD", FAULT_LIBRARY, 1);
    setenv("ASAN_OPTIONS", "verify_asan_link_order=0", 1);
    setenv("STRATIVO_FAULTS", faults.c_str(), 1);
    setenv("STRATIVO_FAULT_LOG", LogPath().c_str(), 1);
    execl(FAULT_DRIVER, FAULT_DRIVER, command.c_str(), file.c_str(), nullptr);
    _exit(127);
}

/// Everything that the driver prints. A driver that hangs is killed, which is an error.
std::string ReadOutput(int input, pid_t driver) {
    constexpr int patience = 60000; // ms
    std::string text;
    std::array<char, 4096> buffer{};
    pollfd waiting{input, POLLIN, 0};
    while (poll(&waiting, 1, patience) > 0) {
        const ssize_t count = read(input, buffer.data(), buffer.size());
        if (count <= 0)
            return text;
        text.append(buffer.data(), static_cast<std::size_t>(count));
    }
    kill(driver, SIGKILL);
    waitpid(driver, nullptr, 0);
    throw std::runtime_error("the driver hangs after: " + text);
}

std::vector<std::string> Split(const std::string& text, char separator) {
    std::vector<std::string> parts;
    std::istringstream stream(text);
    for (std::string part; std::getline(stream, part, separator);)
        parts.push_back(part);
    return parts;
}

LoggedCall ParseCall(const std::string& line) {
    LoggedCall call;
    const auto arrow = line.find(" <- ");
    if (arrow != std::string::npos)
        call.effect = line.substr(arrow + 4);
    call.arguments = Split(line.substr(0, arrow), ' ');
    call.name = call.arguments.at(0);
    call.arguments.erase(call.arguments.begin());
    return call;
}

std::vector<LoggedCall> ReadLog() {
    std::vector<LoggedCall> calls;
    std::ifstream file(LogPath());
    for (std::string line; std::getline(file, line);)
        calls.push_back(ParseCall(line));
    std::filesystem::remove(LogPath());
    return calls;
}

} // namespace

std::vector<std::string> FaultyRun::All(const std::string& word) const {
    std::vector<std::string> values;
    for (const std::string& line : lines)
        if (line.starts_with(word + " "))
            values.push_back(line.substr(word.size() + 1));
    return values;
}

std::string FaultyRun::Value(const std::string& word) const {
    const auto values = All(word);
    return values.size() == 1 ? values.front() : "";
}

bool FaultyRun::Hit(const std::string& effect) const {
    return std::any_of(calls.begin(), calls.end(),
                       [&](const LoggedCall& call) { return call.effect == effect; });
}

int FaultyRun::Count(const std::string& call) const {
    return static_cast<int>(std::count_if(
        calls.begin(), calls.end(), [&](const LoggedCall& logged) { return logged.name == call; }));
}

FaultyRun RunWithFaults(const std::string& command, const std::string& file,
                        const std::string& faults) {
    std::array<int, 2> ends{};
    if (pipe(ends.data()) != 0)
        throw std::runtime_error("no pipe");
    const pid_t driver = fork();
    if (driver == 0) {
        close(ends[0]);
        BecomeDriver(ends[1], command, file, faults);
    }
    close(ends[1]);
    FaultyRun run;
    run.lines = Split(ReadOutput(ends[0], driver), '\n');
    close(ends[0]);
    int status = 0;
    waitpid(driver, &status, 0);
    run.calls = ReadLog();
    run.killed = WIFSIGNALED(status) && WTERMSIG(status) == SIGKILL;
    if (!run.killed && status != 0)
        throw std::runtime_error("the driver ended with status " + std::to_string(status)
                                 + " under " + faults);
    return run;
}

} // namespace strativo
