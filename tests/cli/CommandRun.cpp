#include "cli/CommandRun.h"

#include "cli/CommandLine.h"
#include "text/Windows1252.h"

#include <array>
#include <cstdio>
#include <cstdlib>
#include <fcntl.h>
#include <memory>
#include <sstream>
#include <stdexcept>
#include <sys/wait.h>
#include <unistd.h>

namespace strativo {

namespace {

std::vector<const char*> Pointers(const std::vector<std::string>& arguments) {
    std::vector<const char*> pointers = {"strativo-cli"};
    for (const std::string& argument : arguments)
        pointers.push_back(argument.c_str());
    return pointers;
}

/// A file without a name that a child process can write to.
class Collector {
public:
    Collector() : file(std::tmpfile(), std::fclose) {
        if (!file)
            throw std::runtime_error("no temporary file");
    }

    int Descriptor() const { return fileno(file.get()); }
    std::string Text() const {
        std::string text;
        std::rewind(file.get());
        for (int c = std::getc(file.get()); c != EOF; c = std::getc(file.get()))
            text += static_cast<char>(c);
        return text;
    }

private:
    std::unique_ptr<std::FILE, int (*)(std::FILE*)> file;
};

[[noreturn]] void BecomeProgram(const std::vector<const char*>& arguments, int out, int err,
                                const ProcessOptions& options) {
    constexpr unsigned secondsToLive = 60;
    constexpr uid_t nobody = 65534;
    const int program = open(STRATIVO_CLI, O_RDONLY | O_CLOEXEC);
    if (options.standardInput != nullptr)
        dup2(open(options.standardInput, O_RDONLY), STDIN_FILENO);
    dup2(out, STDOUT_FILENO);
    dup2(err, STDERR_FILENO);
    alarm(secondsToLive);
    if (options.closed >= 0)
        close(options.closed);
    if (options.largestFile != RLIM_INFINITY) {
        const rlimit limit{options.largestFile, options.largestFile};
        setrlimit(RLIMIT_FSIZE, &limit);
    }
    const bool mayRun =
        !options.asNobody || geteuid() != 0 || (setgid(nobody) == 0 && setuid(nobody) == 0);
    if (mayRun)
        fexecve(program, const_cast<char* const*>(arguments.data()), environ);
    _exit(127);
}

} // namespace

RunResult RunTool(const std::vector<std::string>& arguments) {
    const std::vector<const char*> pointers = Pointers(arguments);
    std::ostringstream out;
    std::ostringstream err;
    const int status = RunCommandLine(static_cast<int>(pointers.size()), pointers.data(), out, err);
    return {status, out.str(), err.str()};
}

RunResult RunProgram(const std::vector<std::string>& arguments, ProcessOptions options) {
    std::vector<const char*> pointers = Pointers(arguments);
    pointers.push_back(nullptr);
    const Collector out;
    const Collector err;
    const int redirected =
        options.standardOutput != nullptr ? open(options.standardOutput, O_WRONLY | O_NOCTTY) : -1;
    const pid_t child = fork();
    if (child == 0)
        BecomeProgram(pointers, redirected >= 0 ? redirected : out.Descriptor(), err.Descriptor(),
                      options);
    int status = 0;
    if (child < 0 || waitpid(child, &status, 0) != child)
        throw std::runtime_error("the program could not be run");
    if (redirected >= 0)
        close(redirected);
    return {WIFEXITED(status) ? WEXITSTATUS(status) : -1, out.Text(), err.Text()};
}

Terminal::Terminal() : descriptor(posix_openpt(O_RDWR | O_NOCTTY | O_CLOEXEC)) {
    if (descriptor < 0 || grantpt(descriptor) != 0 || unlockpt(descriptor) != 0)
        throw std::runtime_error("no terminal");
    path = ptsname(descriptor);
}

Terminal::~Terminal() {
    close(descriptor);
}

std::string Terminal::Read() const {
    std::array<char, 4096> piece{};
    const ssize_t count = read(descriptor, piece.data(), piece.size());
    return count <= 0 ? "" : std::string(piece.data(), static_cast<std::size_t>(count));
}

CliTest::CliTest() {
    setenv("XDG_CONFIG_HOME", folder.Path().c_str(), 1);
}

nlohmann::json CliTest::Document(const RunResult& result) {
    EXPECT_TRUE(IsValidUtf8(result.out));
    EXPECT_TRUE(nlohmann::json::accept(result.out)) << result.out.substr(0, 2000);
    return nlohmann::json::parse(result.out, nullptr, false);
}

std::vector<std::string> CliTest::Messages(const nlohmann::json& object) {
    std::vector<std::string> texts;
    for (const auto& message : object.at("messages"))
        texts.push_back(message.at("text"));
    return texts;
}

std::string WallFile(const std::vector<std::string>& before,
                     const std::vector<std::string>& parts) {
    std::vector<std::string> lines = before;
    lines.insert(lines.end(), {"!CONSTRUCTION 'Wall'", "!TYPE OPAQUE", "!PARTS"});
    lines.insert(lines.end(), parts.begin(), parts.end());
    lines.push_back("!END");
    return Lines(lines);
}

std::string WallFile(const std::vector<std::string>& parts) {
    return WallFile({standardLine}, parts);
}

} // namespace strativo
