#include "ui/CrashGuard.h"

#include "project/Recovery.h"

#include <array>
#include <csignal>
#include <cstdlib>
#include <string>
#include <sys/wait.h>
#include <unistd.h>

namespace strativo {

namespace {

// A signal handler is given nothing but the signal's number, so what it needs stands here.
const Project* guarded = nullptr;
int writeEnd = -1;
std::array<char, 64 * 1024> alternateStack;

constexpr std::array<int, 5> crashSignals = {SIGSEGV, SIGBUS, SIGFPE, SIGILL, SIGABRT};
constexpr std::array<int, 3> endSignals = {SIGTERM, SIGHUP, SIGINT};
constexpr unsigned patience = 5; // seconds

/// The crashed process may hold the heap's lock, so a child tries to write and is given up when
/// that takes too long.
void HandleCrash(int signalNumber) {
    if (guarded != nullptr && guarded->changed) {
        const pid_t child = fork();
        if (child == 0) {
            std::signal(SIGALRM, SIG_DFL);
            alarm(patience);
            KeepRecoveryCopy(*guarded, RecoveryFolder());
            _exit(0);
        }
        if (child > 0)
            waitpid(child, nullptr, 0);
    }
    guarded = nullptr;
    std::signal(signalNumber, SIG_DFL);
    std::raise(signalNumber);
}

void HandleEndRequest(int) {
    const char anything = 0;
    [[maybe_unused]] const ssize_t count = write(writeEnd, &anything, 1);
}

/// The toolkit ends the process itself when it loses its display.
void HandleExit() {
    if (guarded != nullptr)
        KeepRecoveryCopy(*guarded, RecoveryFolder());
}

void Install(int signalNumber, void (*handler)(int), int flags) {
    struct sigaction action {};
    action.sa_handler = handler;
    action.sa_flags = flags;
    sigemptyset(&action.sa_mask);
    sigaction(signalNumber, &action, nullptr);
}

} // namespace

CrashGuard::CrashGuard(const Project& project) {
    static const bool registered = std::atexit(HandleExit) == 0;
    guarded = registered ? &project : nullptr;
    stack_t stack{};
    stack.ss_sp = alternateStack.data();
    stack.ss_size = alternateStack.size();
    sigaltstack(&stack, nullptr);
    std::array<int, 2> ends{};
    if (pipe(ends.data()) == 0) {
        readEnd = ends[0];
        writeEnd = ends[1];
    }
    for (const int number : crashSignals)
        Install(number, HandleCrash, SA_ONSTACK | SA_NODEFER);
    for (const int number : endSignals)
        Install(number, HandleEndRequest, SA_RESTART);
}

CrashGuard::~CrashGuard() {
    guarded = nullptr;
    for (const int number : crashSignals)
        Install(number, SIG_DFL, 0);
    for (const int number : endSignals)
        Install(number, SIG_DFL, 0);
    close(readEnd);
    close(writeEnd);
}

} // namespace strativo
