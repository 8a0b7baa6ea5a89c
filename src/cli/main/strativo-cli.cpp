#include "cli/CommandLine.h"
#include "files/Process.h"

#include <csignal>
#include <iostream>

int main(int argc, char** argv) {
    strativo::PrepareProcess();
    std::signal(SIGPIPE, SIG_DFL); // when the reader closes the pipe, the program ends silently
    std::ios::sync_with_stdio(false);
    return strativo::RunCommandLine(argc, argv, std::cout, std::cerr);
}
