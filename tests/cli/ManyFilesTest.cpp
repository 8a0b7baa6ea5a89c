#include "cli/CommandRun.h"
#include "cli/FileNames.h"
#include "support/NoThreads.h"

#include <csignal>
#include <cstdlib>
#include <fcntl.h>
#include <filesystem>
#include <gmock/gmock.h>
#include <malloc.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <thread>
#include <unistd.h>

namespace strativo {
namespace {

namespace fs = std::filesystem;
using testing::HasSubstr;

class ManyFiles : public CliTest {
protected:
    ManyFiles() {
        folder.Write("std.lby", standardLibraryBytes);
        for (int number = 0; number < fileCount; ++number)
            files.push_back(folder.Write(std::to_string(number) + ".con", ContentOf(number)));
        files.insert(files.begin() + 7, "gone.con");
    }

    /// Files of different sizes, so that later ones are done first.
    static std::string ContentOf(int number) {
        std::string content = Lines({standardLine});
        for (int wall = (number * 37) % 60; wall > 0; --wall)
            content += WallFile({}, {brickPart, "_ 2 =       77      0.000      0"});
        return content;
    }

    std::vector<std::string> Call(std::vector<std::string> arguments) const {
        arguments.insert(arguments.end(), files.begin(), files.end());
        return arguments;
    }

    static constexpr int fileCount = 60;
    std::vector<std::string> files;
};

TEST_F(ManyFiles, GiveTheSameBytesForEveryNumberOfJobs) {
    for (const std::vector<std::string>& call :
         std::vector<std::vector<std::string>>{{"show"},
                                               {"show", "--json"},
                                               {"show", "--csv"},
                                               {"show", "--jsonl"},
                                               {"check"},
                                               {"check", "--json"},
                                               {"check", "--jsonl"},
                                               {"thermal"},
                                               {"thermal", "--json"},
                                               {"thermal", "--csv"}}) {
        std::vector<std::string> alone = call;
        alone.insert(alone.end(), {"--jobs", "1"});
        const RunResult expected = RunTool(Call(alone));
        EXPECT_EQ(expected.status, 3);
        EXPECT_THAT(expected.err, HasSubstr("gone.con"));
        for (const char* jobs : {"2", "7", "256"}) {
            alone.back() = jobs;
            const RunResult result = RunTool(Call(alone));
            EXPECT_EQ(result.out, expected.out) << call.back() << " " << jobs;
            EXPECT_EQ(result.err, expected.err);
            EXPECT_EQ(result.status, expected.status);
        }
    }
}

TEST_F(ManyFiles, AreShownWhereNoThreadCanBeStarted) {
    const RunResult expected = RunTool(Call({"show", "--jobs", "1"}));
    const NoThreads noThreads;
    const RunResult result = RunTool(Call({"show", "--jobs", "4"}));
    EXPECT_EQ(result.out, expected.out);
    EXPECT_EQ(result.err, expected.err);
    EXPECT_EQ(result.status, expected.status);
}

TEST_F(ManyFiles, AreALineEachWithJsonl) {
    const RunResult lines = RunTool(Call({"show", "--jsonl"}));
    const auto array = Document(RunTool(Call({"show", "--json"})));
    std::istringstream stream(lines.out);
    std::size_t count = 0;
    for (std::string line; std::getline(stream, line); ++count)
        EXPECT_EQ(nlohmann::json::parse(line), array.at(count));
    EXPECT_EQ(count, files.size());
    EXPECT_THAT(lines.out, testing::StartsWith("{\"schemaVersion\": 1, \"file\": "));
    EXPECT_THAT(lines.out, testing::Not(HasSubstr(",\"")));
}

TEST_F(ManyFiles, AreNamedByAListBehindTheOperands) {
    const std::string expected = RunTool({"show", "1.con", "2.con", "3.con"}).out;
    folder.Write("list", "2.con\r\n\n3.con");
    EXPECT_EQ(RunTool({"show", "1.con", "--files-from", "list"}).out, expected);
    folder.Write("list0", std::string("2.con\0"
                                      "3.con\0",
                                      12));
    EXPECT_EQ(RunTool({"show", "1.con", "--files-from", "list0", "-0"}).out, expected);
    const RunResult piped =
        RunProgram({"show", "1.con", "--files-from", "-"}, {.standardInput = "list"});
    EXPECT_EQ(piped.out, expected);
    EXPECT_EQ(piped.status, 0);
}

/// Memory that this process has allocated; always 0 under the sanitizers.
std::size_t BytesInUse() {
    const struct mallinfo2 memory = mallinfo2();
    return memory.uordblks + memory.hblkhd;
}

TEST_F(ManyFiles, AreNamedByALongListInLittleMemory) {
    constexpr int count = 100000;
    constexpr std::size_t mostBytes = 1 << 20;
    std::string list;
    for (int number = 0; number < count; ++number)
        list += "folder/" + std::to_string(number) + "/a name of fifty characters or so.con\n";
    Invocation call;
    call.filesFrom = folder.Write("list", list);
    FileNames names(call, [] { return false; });
    const std::size_t before = BytesInUse();
    int taken = 0;
    while (names.Next())
        ++taken;
    EXPECT_EQ(taken, count);
    EXPECT_LT(BytesInUse(), before + mostBytes);
}

TEST_F(ManyFiles, MayBeNone) {
    folder.Write("none", "\n\n");
    const RunResult json = RunTool({"show", "--json", "--files-from", "none"});
    EXPECT_EQ(json.status, 0);
    EXPECT_EQ(json.out, "[]\n");
    EXPECT_EQ(RunTool({"check", "--jsonl", "--files-from", "none"}).out, "");
    const RunResult gone = RunTool({"show", "--files-from", "gone"});
    EXPECT_EQ(gone.status, 3);
    EXPECT_EQ(gone.err, "strativo-cli: gone: No such file or directory\n");
}

TEST_F(ManyFiles, AreReportedInAFolder) {
    fs::create_directory("pages");
    EXPECT_EQ(RunTool({"report", "1.con", "2.con", "-o", "pages/"}).status, 0);
    EXPECT_EQ(RunTool({"report", "1.con"}).out, folder.Read("pages/1.html"));
    EXPECT_TRUE(fs::exists("pages/2.html"));
}

TEST_F(ManyFiles, AreReportedInAFolderThatIsMadeForThem) {
    EXPECT_EQ(RunTool({"report", "1.con", "2.con", "-o", "pages/"}).status, 0);
    EXPECT_TRUE(fs::exists("pages/1.html"));
    EXPECT_TRUE(fs::exists("pages/2.html"));
    const RunResult result = RunTool({"report", "1.con", "2.con", "-o", "missing/pages/"});
    EXPECT_EQ(result.status, 3);
    EXPECT_EQ(result.err, "strativo-cli: missing/pages/: No such file or directory\n");
    EXPECT_EQ(RunTool({"report", "1.con", "-o", "std.lby/"}).err,
              "strativo-cli: std.lby/: Not a directory\n");
    EXPECT_EQ(RunTool({"report", "1.con", "1.con", "-o", "unused/"}).status, 2);
    EXPECT_FALSE(fs::exists("unused"));
}

TEST_F(ManyFiles, HaveTheSamePagesForEveryNumberOfJobs) {
    for (const std::string jobs : {"1", "7"}) {
        fs::create_directory("pages" + jobs);
        const RunResult result =
            RunTool(Call({"report", "--jobs", jobs, "-o", "pages" + jobs + "/"}));
        EXPECT_EQ(result.status, 3) << "gone.con";
        EXPECT_EQ(result.out, "");
    }
    for (int number = 0; number < fileCount; ++number) {
        const std::string page = "/" + std::to_string(number) + ".html";
        EXPECT_EQ(folder.Read("pages1" + page), folder.Read("pages7" + page)) << page;
        EXPECT_THAT(folder.Read("pages7" + page), testing::EndsWith("</html>\n"));
    }
}

TEST_F(ManyFiles, AreNotReplacedByPagesOfOthers) {
    fs::create_symlink("2.con", "1.html");
    folder.Write("list", "1.con\n");
    fs::create_hard_link("list", "3.html");
    const RunResult ofAnother = RunTool({"report", "1.con", "2.con", "-o", "./"});
    EXPECT_EQ(ofAnother.status, 2);
    EXPECT_THAT(ofAnother.err, HasSubstr("./1.html is one of the files that are read\nUsage: "));
    EXPECT_EQ(folder.Read("2.con"), ContentOf(2));
    EXPECT_EQ(RunTool({"report", "--files-from", "list", "3.con", "-o", "./"}).status, 2);
    EXPECT_EQ(RunTool({"report", "--files-from", "list", "-o", "list"}).status, 2);
    EXPECT_EQ(folder.Read("list"), "1.con\n");
}

TEST_F(ManyFiles, AreNotReportedWhereTwoWouldBeOnePage) {
    fs::create_directory("pages");
    const RunResult result = RunTool({"report", "2.con", "1.con", "./1.con", "-o", "pages/"});
    EXPECT_EQ(result.status, 2);
    EXPECT_EQ(result.err, "strativo-cli: 1.con and ./1.con would both be reported in pages/1.html\n"
                          "Usage: strativo-cli [OPTIONS] report FILE.con...\n");
    EXPECT_TRUE(fs::is_empty("pages"));
    EXPECT_EQ(RunTool({"report", "1.con", "2.con"}).status, 2);
}

/// The program with a pipe for the names of its files, and its output in files.
class RunningProgram {
public:
    explicit RunningProgram(const std::vector<const char*>& arguments) {
        int names[2] = {};
        if (pipe(names) != 0)
            throw std::runtime_error("no pipe");
        child = fork();
        if (child == 0) {
            dup2(names[0], STDIN_FILENO);
            close(names[1]);
            dup2(open("out", O_WRONLY | O_CREAT, 0600), STDOUT_FILENO);
            dup2(open("err", O_WRONLY | O_CREAT, 0600), STDERR_FILENO);
            alarm(60);
            signal(SIGINT, SIG_DFL); // a script's background job would pass on that it is ignored
            execv(STRATIVO_CLI, const_cast<char* const*>(arguments.data()));
            _exit(127);
        }
        close(names[0]);
        input = names[1];
    }

    void Name(const std::string& line) const {
        ASSERT_EQ(write(input, line.data(), line.size()), static_cast<ssize_t>(line.size()));
    }
    void Interrupt() const { kill(child, SIGINT); }
    int Wait() const {
        int status = 0;
        waitpid(child, &status, 0);
        close(input);
        return WIFEXITED(status) ? WEXITSTATUS(status) : -WTERMSIG(status);
    }

private:
    pid_t child = -1;
    int input = -1;
};

bool ComesSoon(const std::function<bool()>& condition) {
    for (int look = 0; look < 400 && !condition(); ++look)
        std::this_thread::sleep_for(std::chrono::milliseconds(50));
    return condition();
}

TEST_F(ManyFiles, AreShownAsTheirNamesComeUntilAnInterruption) {
    for (const char* jobs : {"1", "4"}) {
        fs::remove("out");
        const RunningProgram program(
            {"strativo-cli", "show", "--jsonl", "--files-from", "-", "--jobs", jobs, nullptr});
        program.Name("1.con\n2.con\n");
        const std::string expected = RunTool({"show", "--jsonl", "1.con", "2.con"}).out;
        EXPECT_TRUE(ComesSoon([&] { return folder.Read("out") == expected; })) << jobs;
        program.Interrupt();
        EXPECT_EQ(program.Wait(), 130);
        EXPECT_EQ(folder.Read("out"), expected);
    }
}

TEST_F(ManyFiles, AreWaitedForAtAFifoUntilAnInterruption) {
    ASSERT_EQ(mkfifo("names", 0600), 0);
    const RunningProgram program({"strativo-cli", "show", "--files-from", "names", nullptr});
    std::this_thread::sleep_for(std::chrono::milliseconds(300));
    program.Interrupt();
    EXPECT_EQ(program.Wait(), 130);
}

TEST_F(ManyFiles, AreReadFromAFifoWhenTheirNamesCome) {
    ASSERT_EQ(mkfifo("names", 0600), 0);
    const RunningProgram program({"strativo-cli", "show", "--files-from", "names", nullptr});
    std::this_thread::sleep_for(std::chrono::milliseconds(300));
    folder.Write("names", "1.con\n2.con\n");
    EXPECT_EQ(program.Wait(), 0);
    EXPECT_EQ(folder.Read("out"), RunTool({"show", "1.con", "2.con"}).out);
}

TEST_F(ManyFiles, AreOneDocumentAlsoWhenInterrupted) {
    const RunningProgram program({"strativo-cli", "show", "--json", "--files-from", "-", nullptr});
    program.Name("1.con\n");
    std::this_thread::sleep_for(std::chrono::milliseconds(300));
    program.Interrupt();
    EXPECT_EQ(program.Wait(), 130);
    EXPECT_TRUE(nlohmann::json::accept(folder.Read("out")));
}

TEST_F(ManyFiles, EndQuietlyWhenNobodyReadsOn) {
    const std::string command = std::string(STRATIVO_CLI)
                                + " show --jsonl --jobs 4 *.con 2>err | head -n 1 >out; "
                                  "[ ${PIPESTATUS[0]} -ne 3 ]";
    ASSERT_EQ(std::system(("trap '' PIPE; exec bash -c '" + command + "'").c_str()), 0);
    EXPECT_EQ(folder.Read("err"), "");
    EXPECT_THAT(folder.Read("out"), HasSubstr("\"schemaVersion\": 1"));
}

TEST_F(ManyFiles, ShowTheirNumberOnATerminal) {
    const Terminal terminal;
    int names[2] = {};
    ASSERT_EQ(pipe(names), 0);
    const pid_t child = fork();
    if (child == 0) {
        dup2(names[0], STDIN_FILENO);
        close(names[1]);
        dup2(open("out", O_WRONLY | O_CREAT, 0600), STDOUT_FILENO);
        dup2(open(terminal.Path(), O_RDWR | O_NOCTTY), STDERR_FILENO);
        alarm(60);
        execl(STRATIVO_CLI, "strativo-cli", "show", "--jsonl", "--jobs", "2", "--files-from", "-",
              nullptr);
        _exit(127);
    }
    close(names[0]);
    ASSERT_EQ(write(names[1], "1.con\n2.con\n", 12), 12);
    std::string seen;
    while (seen.find("2 files") == std::string::npos) {
        const std::string piece = terminal.Read();
        ASSERT_NE(piece, "");
        seen += piece;
    }
    close(names[1]);
    int status = 0;
    waitpid(child, &status, 0);
    EXPECT_TRUE(WIFEXITED(status) && WEXITSTATUS(status) == 0);
    EXPECT_EQ(seen.substr(0, 14), "\rstrativo-cli:");
}

} // namespace
} // namespace strativo
