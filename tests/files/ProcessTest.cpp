#include "files/Process.h"

#include <cerrno>
#include <csignal>
#include <cstdlib>
#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/resource.h>
#include <unistd.h>

namespace strativo {
namespace {

/// 0 if nothing that is opened later takes the place of a closed standard descriptor.
int StatusAfterClosing(int descriptor) {
    close(descriptor);
    PrepareProcess();
    const int later = open("/dev/null", O_RDWR);
    if (later <= STDERR_FILENO)
        return 1;
    char byte = 'x';
    const ssize_t count =
        descriptor == STDIN_FILENO ? read(descriptor, &byte, 1) : write(descriptor, &byte, 1);
    return count < 0 && errno == EBADF ? 0 : 2;
}

TEST(PrepareProcess, LetsNothingTakeThePlaceOfAClosedStandardDescriptor) {
    for (const int descriptor : {STDIN_FILENO, STDOUT_FILENO, STDERR_FILENO})
        EXPECT_EXIT(std::_Exit(StatusAfterClosing(descriptor)), testing::ExitedWithCode(0), "")
            << descriptor;
}

/// 0 if a write beyond the limit for files is an ordinary error.
int StatusBeyondTheLimit() {
    PrepareProcess();
    rlimit limit{};
    getrlimit(RLIMIT_FSIZE, &limit);
    limit.rlim_cur = 0;
    setrlimit(RLIMIT_FSIZE, &limit);
    char path[] = "/tmp/strativo-limit-XXXXXX";
    const int file = mkstemp(path);
    unlink(path);
    return write(file, "x", 1) < 0 && errno == EFBIG ? 0 : 1;
}

/// 0 if no signal is blocked.
int StatusWithAllBlocked() {
    sigset_t signals{};
    sigfillset(&signals);
    sigprocmask(SIG_SETMASK, &signals, nullptr);
    PrepareProcess();
    sigprocmask(SIG_SETMASK, nullptr, &signals);
    for (int signal = 1; signal < NSIG; ++signal)
        if (sigismember(&signals, signal) == 1)
            return signal;
    return 0;
}

TEST(PrepareProcess, LetsSignalsThroughThatWereBlocked) {
    EXPECT_EXIT(std::_Exit(StatusWithAllBlocked()), testing::ExitedWithCode(0), "");
}

TEST(PrepareProcess, MakesAFileThatMayNotGrowAnErrorOfTheWrite) {
    EXPECT_EXIT(std::_Exit(StatusBeyondTheLimit()), testing::ExitedWithCode(0), "");
}

} // namespace
} // namespace strativo
