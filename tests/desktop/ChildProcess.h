#pragma once

#include <chrono>
#include <optional>
#include <string>
#include <sys/types.h>
#include <vector>

namespace strativo {

/// Another program. It ends with this object, or with the test program at the latest.
class ChildProcess {
public:
    explicit ChildProcess(const std::vector<std::string>& command);
    ~ChildProcess();
    ChildProcess(const ChildProcess&) = delete;
    ChildProcess& operator=(const ChildProcess&) = delete;

    /// The exit status; nothing when the program was killed or does not end in time.
    std::optional<int> ExitStatus(std::chrono::milliseconds patience);
    bool IsRunning();
    void Signal(int number) const;
    /// Whether it has loaded a library with this text in its path.
    bool HasLoaded(const std::string& library) const;
    /// Overwrites everything that it has allocated.
    void SpoilHeap(char byte) const;

private:
    pid_t id = -1;
    std::optional<int> status; ///< as the system gives it, once the program has ended
};

} // namespace strativo
