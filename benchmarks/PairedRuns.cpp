#include <algorithm>
#include <array>
#include <cstdlib>
#include <ctime>
#include <fcntl.h>
#include <iostream>
#include <sstream>
#include <string>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>
#include <vector>

// A small process starts the commands, since starting one takes the longer the more memory the
// starter has, and a child's peak memory is never less than that of its starter.

namespace {

constexpr char help[] =
    "usage: paired-runs ROUNDS [VARIABLE=VALUE]... COMMAND [ARGUMENT]... [-- ...]...\n"
    "Runs the commands in turn, in another order each round, after two rounds that do not count.\n"
    "Prints a line for each run: the command's place, each KEY=NUMBER that it printed, and\n"
    "wall and cpu (microseconds) and peak (KiB of memory). The child is given the time of its\n"
    "start in START_NS. A command that fails ends all.\n";

struct Command {
    std::vector<std::string> environment;
    std::vector<std::string> arguments;
};

std::vector<Command> ParseCommands(int argc, char** argv) {
    std::vector<Command> commands(1);
    for (int i = 2; i < argc; ++i) {
        const std::string word = argv[i];
        Command& command = commands.back();
        if (word == "--")
            commands.emplace_back();
        else if (command.arguments.empty() && word.find('=') != std::string::npos)
            command.environment.push_back(word);
        else
            command.arguments.push_back(word);
    }
    return commands;
}

long long Nanoseconds() {
    timespec time{};
    clock_gettime(CLOCK_MONOTONIC, &time);
    return time.tv_sec * 1'000'000'000LL + time.tv_nsec;
}

long long Microseconds(const timeval& time) {
    return time.tv_sec * 1'000'000LL + time.tv_usec;
}

[[noreturn]] void Execute(Command command, int output) {
    dup2(output, STDOUT_FILENO);
    std::vector<char*> arguments;
    for (std::string& argument : command.arguments)
        arguments.push_back(argument.data());
    arguments.push_back(nullptr);
    for (std::string& variable : command.environment)
        putenv(variable.data());
    setenv("START_NS", std::to_string(Nanoseconds()).c_str(), 1);
    execvp(arguments[0], arguments.data());
    _exit(127);
}

std::string ReadAll(int descriptor) {
    std::string text;
    std::array<char, 4096> buffer{};
    for (ssize_t count = 0; (count = read(descriptor, buffer.data(), buffer.size())) > 0;)
        text.append(buffer.data(), static_cast<std::size_t>(count));
    return text;
}

bool IsFigure(const std::string& word) {
    const auto equals = word.find('=');
    if (equals == std::string::npos || equals == 0 || equals + 1 == word.size())
        return false;
    char* end = nullptr;
    std::strtod(word.c_str() + equals + 1, &end);
    return *end == '\0';
}

/// The words of the form KEY=NUMBER, each after a blank.
std::string Figures(const std::string& output) {
    std::istringstream words(output);
    std::string figures;
    for (std::string word; words >> word;)
        if (IsFigure(word))
            figures += ' ' + word;
    return figures;
}

/// The line of the run; empty when it failed.
std::string Run(const Command& command) {
    std::array<int, 2> ends{};
    if (pipe2(ends.data(), O_CLOEXEC) != 0)
        return "";
    const long long start = Nanoseconds();
    const pid_t child = fork();
    if (child == 0)
        Execute(command, ends[1]);
    close(ends[1]);
    const std::string output = ReadAll(ends[0]);
    close(ends[0]);
    int status = 0;
    rusage usage{};
    if (wait4(child, &status, 0, &usage) != child || status != 0)
        return "";
    const long long wall = (Nanoseconds() - start) / 1000;
    const long long cpu = Microseconds(usage.ru_utime) + Microseconds(usage.ru_stime);
    return Figures(output) + " wall=" + std::to_string(wall) + " cpu=" + std::to_string(cpu)
           + " peak=" + std::to_string(usage.ru_maxrss);
}

bool RunInTurn(int rounds, const std::vector<Command>& commands) {
    constexpr int warmUps = 2;
    for (int round = 0; round < rounds + warmUps; ++round)
        for (std::size_t i = 0; i < commands.size(); ++i) {
            const std::size_t place = (i + static_cast<std::size_t>(round)) % commands.size();
            const std::string line = Run(commands[place]);
            if (line.empty()) {
                std::cerr << "paired-runs: " << commands[place].arguments[0] << " failed\n";
                return false;
            }
            if (round >= warmUps)
                std::cout << place << line << '\n';
        }
    return true;
}

} // namespace

int main(int argc, char** argv) {
    const std::vector<Command> commands = ParseCommands(argc, argv);
    const bool whole = std::none_of(commands.begin(), commands.end(), [](const Command& command) {
        return command.arguments.empty();
    });
    if (argc < 3 || !whole) {
        std::cerr << help;
        return 2;
    }
    return RunInTurn(std::atoi(argv[1]), commands) ? 0 : 1;
}
