#pragma once

#include "support/Samples.h"
#include "support/TestProject.h"

#include <gtest/gtest.h>
#include <nlohmann/json.hpp>
#include <string>
#include <sys/resource.h>
#include <vector>

namespace strativo {

/// What a run of the tool left behind.
struct RunResult {
    int status = -1; ///< exit status; -1 when a signal ended the program
    std::string out;
    std::string err;
};

/// Runs the tool in this process.
RunResult RunTool(const std::vector<std::string>& arguments);

struct ProcessOptions {
    bool asNobody = false;                ///< with the rights of a user who owns nothing
    const char* standardOutput = nullptr; ///< path; null: collected in the result
    rlim_t largestFile = RLIM_INFINITY;   ///< bytes that a file may have at most
    int closed = -1;                      ///< descriptor that is closed at the start; -1: none
    const char* standardInput = nullptr;  ///< path; null: that of the tests
};

/// Runs the program itself.
RunResult RunProgram(const std::vector<std::string>& arguments, ProcessOptions options = {});

/// A terminal for the program to write to.
class Terminal {
public:
    Terminal();
    ~Terminal();
    Terminal(const Terminal&) = delete;
    Terminal& operator=(const Terminal&) = delete;

    const char* Path() const { return path.c_str(); }
    /// Waits for what is written next; "" when no process has it open any more.
    std::string Read() const;

private:
    int descriptor;
    std::string path;
};

/// Works in a folder of its own, without any settings of the user.
class CliTest : public testing::Test {
protected:
    CliTest();

    /// The JSON document that the run printed, which must be one, of valid UTF-8.
    static nlohmann::json Document(const RunResult& result);
    /// Texts of the messages of a file's object.
    static std::vector<std::string> Messages(const nlohmann::json& object);

    TemporaryFolder folder;
};

/// Lines of a construction file whose only construction "Wall" has these part lines, with the
/// standard library std.lby.
std::string WallFile(const std::vector<std::string>& parts);
/// The same with these lines before it, such as those of libraries.
std::string WallFile(const std::vector<std::string>& before, const std::vector<std::string>& parts);

inline const std::string standardLine = "!MATERIALS FILE = 'std.lby'";
inline const std::string userLine = "!MATERIALS USER FILE = 'user.lby'";
inline const std::string brickPart = "_ 1 =       12      0.105      0            * FACE BRICK";
inline const std::string hempPart = "_ 1 =      @12      0.100      0            * HEMP";

} // namespace strativo
