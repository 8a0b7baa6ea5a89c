#include "files/Process.h"

#include <cerrno>
#include <csignal>
#include <fcntl.h>
#include <initializer_list>
#include <unistd.h>

namespace strativo {

void PrepareProcess() {
    std::signal(SIGXFSZ, SIG_IGN);
    sigset_t none{};
    sigemptyset(&none);
    sigprocmask(SIG_SETMASK, &none, nullptr);
    for (const int descriptor : {STDIN_FILENO, STDOUT_FILENO, STDERR_FILENO}) {
        const bool isClosed = fcntl(descriptor, F_GETFD) < 0 && errno == EBADF;
        // Opening takes the lowest free number, which is this one: those before it are in use by
        // now.
        if (isClosed && open("/dev/null", descriptor == STDIN_FILENO ? O_WRONLY : O_RDONLY) < 0)
            return;
    }
}

} // namespace strativo
