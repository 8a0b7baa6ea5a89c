#include "desktop/ChildProcess.h"

#include <csignal>
#include <fstream>
#include <stdexcept>
#include <string>
#include <sys/prctl.h>
#include <sys/wait.h>
#include <thread>
#include <unistd.h>

namespace strativo {

ChildProcess::ChildProcess(const std::vector<std::string>& command) {
    std::vector<char*> arguments;
    for (const std::string& argument : command)
        arguments.push_back(const_cast<char*>(argument.c_str()));
    arguments.push_back(nullptr);
    const pid_t parent = getpid();
    id = fork();
    if (id < 0)
        throw std::runtime_error("cannot start " + command.front());
    if (id > 0)
        return;
    prctl(PR_SET_PDEATHSIG, SIGKILL);
    // A script's background job would pass on that they are ignored.
    for (const int number : {SIGINT, SIGQUIT, SIGHUP})
        signal(number, SIG_DFL);
    if (getppid() == parent)
        execvp(arguments.front(), arguments.data());
    _exit(127);
}

ChildProcess::~ChildProcess() {
    if (!IsRunning())
        return;
    kill(id, SIGTERM);
    ExitStatus(std::chrono::seconds(5));
    if (!IsRunning())
        return;
    kill(id, SIGKILL);
    waitpid(id, nullptr, 0);
}

bool ChildProcess::IsRunning() {
    int ended = 0;
    if (!status && waitpid(id, &ended, WNOHANG) == id)
        status = ended;
    return !status;
}

void ChildProcess::Signal(int number) const {
    kill(id, number);
}

bool ChildProcess::HasLoaded(const std::string& library) const {
    std::ifstream maps("/proc/" + std::to_string(id) + "/maps");
    for (std::string line; std::getline(maps, line);)
        if (line.find(library) != std::string::npos)
            return true;
    return false;
}

void ChildProcess::SpoilHeap(char byte) const {
    const std::string process = "/proc/" + std::to_string(id);
    std::ifstream maps(process + "/maps");
    std::fstream memory(process + "/mem", std::ios::in | std::ios::out | std::ios::binary);
    for (std::string line; std::getline(maps, line);) {
        if (line.find("[heap]") == std::string::npos)
            continue;
        const auto first = std::stoull(line, nullptr, 16);
        const auto last = std::stoull(line.substr(line.find('-') + 1), nullptr, 16);
        memory.seekp(static_cast<std::streamoff>(first));
        memory << std::string(last - first, byte) << std::flush;
    }
    if (!memory)
        throw std::runtime_error("the heap cannot be written to");
}

std::optional<int> ChildProcess::ExitStatus(std::chrono::milliseconds patience) {
    const auto end = std::chrono::steady_clock::now() + patience;
    while (IsRunning() && std::chrono::steady_clock::now() < end)
        std::this_thread::sleep_for(std::chrono::milliseconds(10));
    if (IsRunning() || !WIFEXITED(*status))
        return std::nullopt;
    return WEXITSTATUS(*status);
}

} // namespace strativo
