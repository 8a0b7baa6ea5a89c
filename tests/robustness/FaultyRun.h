#pragma once

#include <string>
#include <vector>

namespace strativo {

/// A system call that the fault library saw.
struct LoggedCall {
    std::string name;
    std::vector<std::string> arguments;
    std::string effect; ///< of the fault, "" where there was none
};

/// The outcome of a run of the driver.
struct FaultyRun {
    bool killed = false; ///< by the fault library; anything else but a normal end throws
    std::vector<std::string> lines;
    std::vector<LoggedCall> calls;

    /// The rest of each line that begins with the word.
    std::vector<std::string> All(const std::string& word) const;
    /// The same for the only such line; "" if there is none.
    std::string Value(const std::string& word) const;
    bool Hit(const std::string& effect) const;
    int Count(const std::string& call) const;
};

/// Runs the driver in the working directory with these faults. Throws when it hangs or crashes.
FaultyRun RunWithFaults(const std::string& command, const std::string& file,
                        const std::string& faults);

} // namespace strativo
